// A page's bytes as text: finds the encoding that the page was written in.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace web {

/// The page in UTF-8. What counts is, in this order, a byte order mark, the header's charset, the page's own
/// first charset declaration; without any of them a page that is no sound UTF-8 is taken for Western
/// European. Any bytes give some text; zeros in
/// it become replacement characters. `contentType` is the header's value.
std::string htmlText(std::span<const std::uint8_t> bytes, std::string_view contentType);

} // namespace web
