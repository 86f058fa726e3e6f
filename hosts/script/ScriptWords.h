// One line of a script as words.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace script {

/// Splits a line at blanks and tabs. A word in double quotes may hold blanks and "#"; within the quotes \" is
/// a quote, \\ a backslash and \n a line feed. Outside of them "#" begins a comment. Throws
/// std::invalid_argument with the reason for a line that breaks these rules.
std::vector<std::string> splitWords(std::string_view line);

} // namespace script
