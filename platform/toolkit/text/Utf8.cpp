#include "platform/toolkit/text/Utf8.h"

#include <glib.h>

#include <algorithm>

namespace toolkit {

namespace {

void cutAtCharacter(std::string& text, std::size_t maximumBytes) {
    if (text.size() <= maximumBytes)
        return;
    std::size_t end = maximumBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    text.resize(end);
}

} // namespace

std::string wholeUtf8(std::string_view text, std::size_t maximumBytes) {
    // A little more than the limit is looked at, so that the character at the limit is not broken by the cut.
    constexpr std::size_t longestCharacter = 4;
    std::string result(text.substr(0, maximumBytes + longestCharacter));
    result.erase(std::remove(result.begin(), result.end(), '\0'), result.end());
    if (!g_utf8_validate(result.data(), static_cast<gssize>(result.size()), nullptr)) {
        gchar* whole = g_utf8_make_valid(result.data(), static_cast<gssize>(result.size()));
        result = whole;
        g_free(whole);
    }
    cutAtCharacter(result, maximumBytes);
    return result;
}

std::string singleLine(std::string_view text, std::size_t maximumBytes) {
    std::string line = wholeUtf8(text, maximumBytes);
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
    return line;
}

} // namespace toolkit
