// Taking apart what the kernel writes: lines, the words of a line, and numbers. Whatever the text holds,
// nothing here reads beyond it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace systemplugin {

/// The lines without their ends; an unfinished last one counts.
std::vector<std::string_view> linesOf(std::string_view text);
/// The words between blanks and tabs.
std::vector<std::string_view> wordsOf(std::string_view line);
/// A whole word of digits; nothing when it is anything else or does not fit.
std::optional<std::uint64_t> numberFrom(std::string_view word);

} // namespace systemplugin
