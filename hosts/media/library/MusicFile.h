// An audio file as its directory tells of it; what tells whether it is still the one that was read before.
#pragma once

#include <cstdint>
#include <string>

namespace playback {

struct MusicFile {
    /// Absolute, in the file system's own bytes.
    std::string path;
    /// Of the last change, in nanoseconds since 1970.
    std::int64_t modified = 0;
    std::uint64_t size = 0;

    friend bool operator==(const MusicFile&, const MusicFile&) = default;
};

} // namespace playback
