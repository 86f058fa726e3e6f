// What the lyrics gateway is asked and what it reads: any bytes as a request's target, and as a text with
// time tags.
#include "hosts/lyrics-gateway/LyricPage.h"
#include "hosts/lyrics-gateway/LyricText.h"
#include "hosts/lyrics-gateway/SongRequest.h"
#include "platform/web/HTMLDocument.h"
#include "vela/nowplaying/LyricMarkup.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    if (const auto song = gateway::SongRequest::parse("/wiki/" + bytes))
        if (song->artist.empty() || song->title.empty())
            std::abort();
    const std::string text = gateway::tidied(gateway::withoutTimeTags(bytes));
    if (text.empty())
        return 0;
    // A page gives back what went into it: here all texts without what could be taken for markup.
    const auto page = web::HTMLDocument::parse(gateway::lyricPage("Band", "Song", text));
    const auto box = page ? page->innerHTMLOfElement("lyricbox", 0) : std::nullopt;
    const auto lyric = box ? vela::textOfLyricMarkup(*box) : std::nullopt;
    const bool simple =
        std::all_of(text.begin(), text.end(), [](char c) { return c > 0 && c != '<' && c != '"'; });
    if (!lyric || (simple && *lyric != text))
        std::abort();
    return 0;
}
