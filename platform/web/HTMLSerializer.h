// Writes a part of a page's tree back as markup, in the one form that every tree has.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

struct GumboInternalNode;

namespace web {

/// The most markup that is written, in bytes; escaping makes more of a text than it was.
inline constexpr std::size_t largestMarkup = 4 * 1024 * 1024;

/// The markup of everything inside of an element; nothing when it would be more than largestMarkup.
std::optional<std::string> innerHTML(const GumboInternalNode& element);

} // namespace web
