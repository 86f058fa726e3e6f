// What the library knows of one file.
#pragma once

#include "hosts/media/library/MusicFile.h"
#include "hosts/media/library/SongTags.h"

#include <optional>

namespace playback {

struct LibraryEntry {
    MusicFile file;
    /// Nothing for a file that is no song in spite of its name; it is known, so that it is not read again.
    std::optional<SongTags> tags;

    friend bool operator==(const LibraryEntry&, const LibraryEntry&) = default;
};

} // namespace playback
