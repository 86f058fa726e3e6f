// Pages of any bytes, on the way from a server to a lyric: nothing crashes, and what comes out is text.
#include "platform/web/HTMLDocument.h"
#include "platform/web/HTMLText.h"
#include "vela/nowplaying/LyricMarkup.h"

#include <cstdint>
#include <cstdlib>

#include <glib.h>

namespace {

void requireText(const std::string& text) {
    if (!g_utf8_validate_len(text.data(), text.size(), nullptr))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first byte chooses what the server says of the page.
    static constexpr const char* types[] = {"text/html", "text/html; charset=utf-8",
                                            "text/html; charset=koi8-r", "text/html; charset=utf-16",
                                            "text/html; charset=iso-2022-jp"};
    const std::size_t type = size > 0 ? data[0] % std::size(types) : 0;
    const std::string text = web::htmlText({data, size}, types[type]);
    requireText(text);
    const auto page = web::HTMLDocument::parse(text);
    const auto markup = page ? page->innerHTMLOfElement("lyricbox", 0) : std::nullopt;
    if (!markup)
        return 0;
    requireText(*markup);
    if (const auto lyric = vela::textOfLyricMarkup(*markup)) {
        requireText(*lyric);
        if (lyric->find("<br>") != std::string::npos && markup->find("<i>") == std::string::npos)
            std::abort();
    }
    return 0;
}
