// Texts from tags, streams and other players, made fit to be shown.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace playback {

/// The longest title or name that is taken from outside, in bytes.
inline constexpr std::size_t maximumNameBytes = 4096;

/// The text in valid UTF-8 up to its first NUL, lines ending in "\n", without white space at its ends, and
/// cut between two characters to at most `maximumBytes`.
std::string cleanText(std::string_view text, std::size_t maximumBytes = maximumNameBytes);

} // namespace playback
