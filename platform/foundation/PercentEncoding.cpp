#include "platform/foundation/PercentEncoding.h"

#include <glib.h>

namespace foundation {

namespace {

bool isLetterOrDigit(char c) {
    return g_ascii_isalnum(c);
}

} // namespace

std::string percentEncoded(std::string_view text, std::string_view alsoAllowed) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size());
    for (const char c : text) {
        if (isLetterOrDigit(c) || alsoAllowed.find(c) != std::string_view::npos) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return encoded;
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool escape = text[at] == '%' && text.size() - at > 2 && g_ascii_isxdigit(text[at + 1]) &&
                            g_ascii_isxdigit(text[at + 2]);
        if (!escape) {
            decoded += text[at];
            continue;
        }
        decoded +=
            static_cast<char>(g_ascii_xdigit_value(text[at + 1]) * 16 + g_ascii_xdigit_value(text[at + 2]));
        at += 2;
    }
    return decoded;
}

} // namespace foundation
