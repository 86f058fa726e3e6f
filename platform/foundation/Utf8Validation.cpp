#include "platform/foundation/Utf8Validation.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <glib.h>

namespace foundation {

namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// Behind the ASCII characters that begin at `at`.
std::size_t skipAscii(std::string_view text, std::size_t at) {
    // Eight at a time: none of them has its highest bit.
    constexpr std::uint64_t highestBits = 0x8080808080808080;
    for (std::uint64_t word = 0; text.size() - at >= sizeof word; at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if (word & highestBits)
            break;
    }
    while (at < text.size() && isAscii(text[at]))
        ++at;
    return at;
}

} // namespace

bool isValidUtf8(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        return false;
    for (std::size_t at = skipAscii(text, 0); at < text.size(); at = skipAscii(text, at)) {
        // What lies between two ASCII characters is whole characters, or it is not sound.
        const auto* begin = text.begin() + at;
        const auto* end = std::find_if(begin, text.end(), isAscii);
        if (!g_utf8_validate_len(begin, static_cast<gsize>(end - begin), nullptr))
            return false;
        at += static_cast<std::size_t>(end - begin);
    }
    return true;
}

} // namespace foundation
