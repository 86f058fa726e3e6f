#include "vela/nowplaying/LyricMarkup.h"

#include "platform/foundation/TextReplacement.h"

using foundation::replacingOccurrences;

namespace vela {

namespace {

/// Where the character before `at` begins; the text's beginning when there is none.
std::size_t characterBefore(const std::string& text, std::size_t at) {
    const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    while (at > 0 && isContinuation(text[--at])) {
    }
    return at;
}

} // namespace

std::optional<std::string> textOfLyricMarkup(std::string markup) {
    if (markup.find("\"content\"") == std::string::npos)
        return std::nullopt;
    markup = replacingOccurrences(markup, "{\"content\":\"<p>", "");
    markup = replacingOccurrences(markup, "<br>", "\n");
    markup = replacingOccurrences(markup, "<i>", "");
    // The cut takes the closing quote before the marker with it. A page without the marker is kept whole.
    const std::size_t marker = markup.find(",\"media\"");
    if (marker != std::string::npos)
        markup.resize(characterBefore(markup, marker));
    return markup;
}

} // namespace vela
