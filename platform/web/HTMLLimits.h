// Whether a page is such that a parser gets through it in good time.
#pragma once

#include <cstddef>
#include <string_view>

namespace web {

/// Parsing takes a time that grows with the square of these.
inline constexpr std::size_t mostTags = 15'000;
inline constexpr std::size_t mostAttributesOfTag = 4'000;
inline constexpr std::size_t longestAttributeValue = 256 * 1024; // bytes

/// Looks at everything that could be a tag, also where the page's text or scripts only seem to have one.
bool isWithinHTMLLimits(std::string_view text);

} // namespace web
