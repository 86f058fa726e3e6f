// What radio stations send as their title: made fit to be shown, and taken apart.
#include "hosts/media/Text.h"
#include "hosts/phone/music/StreamTitle.h"

#include <cstdint>
#include <cstdlib>

#include <glib.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = playback::cleanText({reinterpret_cast<const char*>(data), size});
    if (text.size() > playback::maximumNameBytes || text.find_first_of("\r") != std::string::npos ||
        !g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr))
        std::abort();
    const auto title = phone::StreamTitle::parse(text);
    if (title.title.size() + title.artist.size() > text.size())
        std::abort();
    return 0;
}
