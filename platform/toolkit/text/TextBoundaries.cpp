#include "platform/toolkit/text/TextBoundaries.h"

#include <pango/pango.h>

#include <algorithm>
#include <vector>

namespace toolkit {

namespace {
/// How much text around an index is looked at; no character of any writing is as long.
constexpr std::size_t reach = 256; // bytes

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t atCodePoint(const std::string& text, std::size_t index) {
    while (index > 0 && index < text.size() && isContinuation(text[index]))
        --index;
    return index;
}

/// The boundaries within the part of `text` from `begin` to `end`, both of them included.
std::vector<std::size_t> boundaries(const std::string& text, std::size_t begin, std::size_t end) {
    const char* part = text.data() + begin;
    const int length = static_cast<int>(end - begin);
    const auto count = static_cast<std::size_t>(g_utf8_strlen(part, length)) + 1;
    std::vector<PangoLogAttr> attributes(count);
    pango_get_log_attrs(part, length, -1, pango_language_get_default(), attributes.data(),
                        static_cast<int>(count));
    std::vector<std::size_t> result;
    const char* position = part;
    for (std::size_t i = 0; i < count; ++i) {
        if (attributes[i].is_cursor_position || i == 0 || i + 1 == count)
            result.push_back(begin + static_cast<std::size_t>(position - part));
        if (i + 1 < count)
            position = g_utf8_next_char(position);
    }
    return result;
}
} // namespace

std::size_t nextCharacter(const std::string& text, std::size_t index) {
    if (index >= text.size())
        return text.size();
    const std::size_t begin = atCodePoint(text, index);
    const std::size_t end = atCodePoint(text, std::min(text.size(), begin + reach));
    return boundaries(text, begin, end)[1];
}

std::size_t previousCharacter(const std::string& text, std::size_t index) {
    if (index == 0)
        return 0;
    const std::size_t end = atCodePoint(text, std::min(index, text.size()));
    if (end == 0)
        return 0;
    const std::size_t begin = atCodePoint(text, end > reach ? end - reach : 0);
    const auto found = boundaries(text, begin, end);
    return found[found.size() - 2];
}

} // namespace toolkit
