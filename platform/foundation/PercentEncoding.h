// Texts as parts of a URL. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace foundation {

/// Every byte but ASCII letters, digits and those in `alsoAllowed` as "%XX".
std::string percentEncoded(std::string_view text, std::string_view alsoAllowed);

/// What in a query stands for itself and for nothing else.
inline constexpr std::string_view unreservedPunctuation = "-._~";

/// The bytes that "%XX" stand for; a percent sign that begins no such thing stays. "+" stays as well.
std::string percentDecoded(std::string_view text);

} // namespace foundation
