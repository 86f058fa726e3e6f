#include "hosts/script/PreferenceValue.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace script {

namespace {

constexpr std::size_t maximumKeyBytes = 1024;
constexpr std::size_t maximumStringBytes = 64 * 1024;

bool isUtf8(const std::string& text) {
    return g_utf8_validate_len(text.data(), text.size(), nullptr);
}

bool parseBool(std::string_view written) {
    constexpr std::array<std::string_view, 4> yes{"true", "yes", "on", "1"};
    constexpr std::array<std::string_view, 4> no{"false", "no", "off", "0"};
    std::string text(written);
    std::transform(text.begin(), text.end(), text.begin(), g_ascii_tolower);
    if (std::find(yes.begin(), yes.end(), text) != yes.end())
        return true;
    if (std::find(no.begin(), no.end(), text) != no.end())
        return false;
    throw std::invalid_argument("\"" + std::string(written) + "\" is neither true nor false");
}

foundation::PropertyList parseNumberValue(std::string_view text) {
    std::int64_t whole = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), whole);
    if (error == std::errc() && end == text.data() + text.size())
        return whole;
    return parseNumber(text, "the value");
}

} // namespace

double parseNumber(std::string_view text, std::string_view what) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        throw std::invalid_argument(std::string(what) + " \"" + std::string(text) + "\" is not a number");
    return value;
}

foundation::PropertyList parsePreferenceValue(std::string_view type, const std::string& text) {
    if (type == "bool")
        return parseBool(text);
    if (type == "number")
        return parseNumberValue(text);
    if (type != "string")
        throw std::invalid_argument("\"" + std::string(type) +
                                    "\" is no type: bool, number, string or remove");
    if (text.size() > maximumStringBytes || !isUtf8(text))
        throw std::invalid_argument("the value is too long or not UTF-8 text");
    return text;
}

void checkPreferenceKey(const std::string& key) {
    const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7F; };
    if (key.empty())
        throw std::invalid_argument("the key is empty");
    if (key.size() > maximumKeyBytes || !isUtf8(key) || std::any_of(key.begin(), key.end(), isControl))
        throw std::invalid_argument("the key is too long or not plain UTF-8 text");
}

} // namespace script
