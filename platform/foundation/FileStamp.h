// Tells whether a file may have changed, for those who ask many times a second: nothing is read and nothing
// is allocated while it stands still.
//
// A file that comes, goes or is replaced has changed too. Two writings within the grain of the file system's
// clock can look the same; so a change is told twice, the second time for what may have followed it at once.
#pragma once

#include <cstdint>
#include <string>

namespace foundation {

class FileStamp {
public:
    explicit FileStamp(std::string devicePath) : devicePath_(std::move(devicePath)) {}

    /// Whether the file looks different from what it did at the call before, or did so then. The first call
    /// answers true.
    bool mayHaveChanged();

private:
    struct Look {
        std::uint64_t device = 0; // all zero for a missing file
        std::uint64_t node = 0;
        std::int64_t size = 0;
        std::int64_t changedSeconds = 0;
        std::int64_t changedNanoseconds = 0;
        friend bool operator==(const Look&, const Look&) = default;
    };
    void findFile();
    Look look() const;

    std::string devicePath_;
    std::string root_; // that the real path lies below
    std::string realPath_;
    Look last_;
    int callsToTell_ = 2;
};

} // namespace foundation
