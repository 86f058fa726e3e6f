#include "Fields.h"

#include <algorithm>
#include <charconv>

namespace systemplugin {

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

std::vector<std::string_view> wordsOf(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    std::vector<std::string_view> words;
    for (std::size_t start = line.find_first_not_of(blanks); start != std::string_view::npos;) {
        const std::size_t end = std::min(line.find_first_of(blanks, start), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(blanks, end);
    }
    return words;
}

std::optional<std::uint64_t> numberFrom(std::string_view word) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc{} || end != word.data() + word.size())
        return std::nullopt;
    return number;
}

} // namespace systemplugin
