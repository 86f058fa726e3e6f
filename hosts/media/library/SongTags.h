// What the tags of an audio file say, made fit to be shown: valid UTF-8 of bounded length.
#pragma once

#include <string>

namespace playback {

struct SongTags {
    /// Empty for what the file does not say.
    std::string title;
    std::string artist;
    std::string album;
    std::string albumArtist;
    std::string composer;
    std::string genre;
    /// 0 for none.
    unsigned trackNumber = 0;
    unsigned discNumber = 0;
    /// Seconds.
    double duration = 0;
    bool hasCover = false;

    friend bool operator==(const SongTags&, const SongTags&) = default;
};

} // namespace playback
