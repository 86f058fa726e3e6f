// Pages as a lyrics wiki has them, made so that reading them gives the very text back.
#pragma once

#include <string>

namespace gateway {

/// A page whose lyric box holds `text`.
std::string lyricPage(const std::string& artist, const std::string& title, const std::string& text);

/// A page without a lyric box, which says so.
std::string emptyPage(const std::string& artist, const std::string& title, const std::string& message);

} // namespace gateway
