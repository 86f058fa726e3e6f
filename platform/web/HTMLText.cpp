#include "platform/web/HTMLText.h"

#include "platform/foundation/Utf8Validation.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <optional>

#include <glib.h>

namespace web {

namespace {

/// How far into a page its own declaration is looked for, as browsers do.
constexpr std::size_t declarationReach = 1024; // bytes
constexpr std::size_t longestName = 40;

constexpr const char* westernEuropean = "WINDOWS-1252";
constexpr const char* anyByte = "ISO-8859-1";

struct Free {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, Free>;

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), g_ascii_tolower);
    return lower;
}

bool isNameCharacter(char c) {
    return g_ascii_isalnum(c) || c == '-' || c == '_' || c == '.' || c == ':';
}

/// The name behind the first "charset=", in lower case; empty when there is none.
std::string declaredCharset(std::string_view text) {
    const std::string lower = lowerCase(text);
    constexpr std::string_view word = "charset";
    for (std::size_t at = lower.find(word); at != std::string::npos; at = lower.find(word, at + 1)) {
        std::size_t begin = lower.find_first_not_of(" \t\r\n", at + word.size());
        if (begin == std::string::npos || lower[begin] != '=')
            continue;
        begin = std::min(lower.find_first_not_of(" \t\r\n\"'", begin + 1), lower.size());
        const auto end = std::find_if_not(lower.begin() + static_cast<std::ptrdiff_t>(begin), lower.end(),
                                          isNameCharacter);
        return std::string(lower.begin() + static_cast<std::ptrdiff_t>(begin), end).substr(0, longestName);
    }
    return {};
}

/// Sound UTF-8, without zeros.
std::string repairedUtf8(const std::string& text) {
    return Text(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()))).get();
}

std::optional<std::string> converted(std::string_view text, const std::string& charset) {
    gsize length = 0;
    const Text result(g_convert(text.data(), static_cast<gssize>(text.size()), "UTF-8", charset.c_str(),
                                nullptr, &length, nullptr));
    return result ? std::optional(std::string(result.get(), length)) : std::nullopt;
}

std::string decoded(std::string_view text, std::string charset) {
    if (charset == "utf-8" || charset == "utf8" || (charset.empty() && foundation::isValidUtf8(text)))
        return std::string(text);
    // Whoever says these means the larger set that contains them.
    if (charset == "iso-8859-1" || charset == "latin1" || charset == "us-ascii" || charset == "ascii")
        charset = westernEuropean;
    for (const std::string& candidate : {charset, std::string(westernEuropean), std::string(anyByte)})
        if (!candidate.empty())
            if (auto result = converted(text, candidate))
                return *result;
    return {};
}

std::string decodedAsDeclared(std::span<const std::uint8_t> bytes, std::string_view contentType) {
    using namespace std::string_view_literals;
    if (bytes.empty())
        return {};
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    constexpr auto utf8Mark = "\xEF\xBB\xBF"sv, littleMark = "\xFF\xFE"sv, bigMark = "\xFE\xFF"sv;
    if (text.starts_with(utf8Mark))
        return std::string(text.substr(utf8Mark.size()));
    if (text.starts_with(littleMark))
        return decoded(text.substr(littleMark.size()), "utf-16le");
    if (text.starts_with(bigMark))
        return decoded(text.substr(bigMark.size()), "utf-16be");
    std::string charset = declaredCharset(contentType);
    if (charset.empty())
        charset = declaredCharset(text.substr(0, declarationReach));
    return decoded(text, charset);
}

} // namespace

std::string htmlText(std::span<const std::uint8_t> bytes, std::string_view contentType) {
    return repairedUtf8(decodedAsDeclared(bytes, contentType));
}

} // namespace web
