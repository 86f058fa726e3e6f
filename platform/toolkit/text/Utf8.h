// Text from outside, made safe to lay out.
#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// `text` without NUL bytes, with U+FFFD for every broken sequence, and cut to `maximumBytes` at a character.
std::string wholeUtf8(std::string_view text, std::size_t maximumBytes);

/// The same as a single line: a blank for every control character.
std::string singleLine(std::string_view text, std::size_t maximumBytes);

} // namespace toolkit
