// What a song's entry in the lyric and artwork stores is called.
#pragma once

#include <string>

namespace vela {

/// Title first. Nothing is trimmed or escaped: two songs may share a key, and an empty side stays empty.
inline std::string songKey(const std::string& title, const std::string& artist) {
    return title + "_" + artist;
}

} // namespace vela
