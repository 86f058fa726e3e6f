// A directory of a test's own, removed with all that is in it when the test ends.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tests {

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string pattern = std::filesystem::temp_directory_path() / "vela-test-XXXXXX";
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary directory could be made");
        path_ = pattern;
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace tests
