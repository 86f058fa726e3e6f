// The short files in which web radios name their streams: M3U and PLS.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace playback {

/// Enough for what a station names, which are servers of the same stream.
inline constexpr std::size_t mostStreamsOfList = 16;

/// Whether an address of the web names such a file, by the ending of its path.
bool namesStreamList(const std::string& address);

/// The addresses of the web in such a file, in its order; relative ones are relative to the file's own
/// `address`. Anything else in it is passed over, and a list of pieces of one stream names none.
std::vector<std::string> streamsOfList(std::string_view text, const std::string& address);

} // namespace playback
