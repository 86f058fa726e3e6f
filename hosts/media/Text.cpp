#include "hosts/media/Text.h"

#include <memory>

#include <glib.h>

namespace playback {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n\f\v";

/// At most `maximumBytes` of a valid text, whole characters only.
std::string_view shortened(std::string_view text, std::size_t maximumBytes) {
    if (text.size() <= maximumBytes)
        return text;
    const char* end = text.data() + maximumBytes;
    while (end > text.data() && (static_cast<unsigned char>(*end) & 0xC0) == 0x80)
        --end;
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

std::string withPlainLineEnds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '\r')
            result += text[index];
        else if (index + 1 == text.size() || text[index + 1] != '\n')
            result += '\n';
    }
    return result;
}

} // namespace

std::string cleanText(std::string_view text, std::size_t maximumBytes) {
    text = text.substr(0, text.find('\0'));
    // Marks for damaged bytes make the text longer, so it is cut before and after.
    text = text.substr(0, maximumBytes + 4);
    const std::unique_ptr<char, void (*)(gpointer)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    std::string_view rest = shortened(valid.get(), maximumBytes);
    const auto begin = rest.find_first_not_of(whiteSpace);
    if (begin == std::string_view::npos)
        return {};
    rest = rest.substr(begin, rest.find_last_not_of(whiteSpace) + 1 - begin);
    return withPlainLineEnds(rest);
}

} // namespace playback
