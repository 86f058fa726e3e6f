// The library's index file: what was read of every audio file, so that a start reads only what has changed.
//
// The index is a cache. One that is missing, damaged or of another version counts as empty, and the library
// reads its files again. Any thread, one at a time.
#pragma once

#include "hosts/media/library/LibraryEntry.h"

#include <cstdint>
#include <span>
#include <vector>

namespace playback {

class LibraryIndex {
public:
    /// `devicePath`: where the file lies below the device root; its directory is made when it is missing.
    explicit LibraryIndex(std::string devicePath) : devicePath_(std::move(devicePath)) {}

    std::vector<LibraryEntry> read() const;
    /// Writes the whole index atomically; false when that failed, the old one standing.
    bool write(const std::vector<LibraryEntry>& entries) const;

    /// The file's bytes, and what they say; nothing for bytes that are no whole index.
    static std::vector<std::uint8_t> encode(const std::vector<LibraryEntry>& entries);
    static std::optional<std::vector<LibraryEntry>> decode(std::span<const std::uint8_t> bytes);

private:
    std::string devicePath_;
};

} // namespace playback
