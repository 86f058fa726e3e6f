// Where one character ends and the next begins in UTF-8 text.
//
// A character is what a user takes for one: a letter with its accents, a flag, a family of emoji. Indexes are
// bytes. The text must be whole UTF-8 (see wholeUtf8) and an index lies between two characters. Any thread.
#pragma once

#include <cstddef>
#include <string>

namespace toolkit {

/// The boundary after the character at `index`; the text's end stays where it is.
std::size_t nextCharacter(const std::string& text, std::size_t index);
/// The boundary before the character that ends at `index`; 0 stays where it is.
std::size_t previousCharacter(const std::string& text, std::size_t index);

} // namespace toolkit
