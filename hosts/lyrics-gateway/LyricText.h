// Texts of lyrics, as they come from files and services.
#pragma once

#include <string>
#include <string_view>

namespace gateway {

/// The text of a lyric with time tags ("[01:23.45]line"): without the tags, without the lines that only say
/// something about the song ("[ar:…]"), a line of several times at each of them.
std::string withoutTimeTags(std::string_view text);

/// A lyric as everyone expects it: sound UTF-8, lines that end with a line feed, no control characters, no
/// empty space around it.
std::string tidied(std::string_view text);

} // namespace gateway
