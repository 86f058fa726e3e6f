// Texts of the pages as GTK takes them.
#pragma once

#include <string>

namespace settings {

/// Valid UTF-8: what is not is replaced, and the text ends before a NUL byte.
std::string displayed(const std::string& text);

} // namespace settings
