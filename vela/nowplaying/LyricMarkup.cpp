#include "vela/nowplaying/LyricMarkup.h"

#include "platform/foundation/TextReplacement.h"

using foundation::replacingOccurrences;

namespace vela {

std::optional<std::string> textOfLyricMarkup(std::string markup) {
    if (markup.find("\"content\"") == std::string::npos)
        return std::nullopt;
    markup = replacingOccurrences(markup, "{\"content\":\"<p>", "");
    markup = replacingOccurrences(markup, "<br>", "\n");
    markup = replacingOccurrences(markup, "<i>", "");
    // The cut takes the closing quote before the marker with it. A page without the marker is kept whole.
    const std::size_t marker = markup.find(",\"media\"");
    if (marker != std::string::npos)
        markup.resize(marker > 0 ? marker - 1 : 0);
    return markup;
}

} // namespace vela
