#include "platform/foundation/PropertyList.h"

#include <charconv>
#include <cmath>
#include <limits>

#include <glib.h>

namespace foundation {

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

std::size_t skipSign(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

std::string_view withoutLeadingSpace(std::string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

/// The part of `text` that is its leading decimal number, sign, fraction and exponent included; empty when it
/// begins with none.
std::string_view leadingNumber(std::string_view text) {
    text = withoutLeadingSpace(text);
    const std::size_t begin = skipSign(text, 0);
    std::size_t end = skipDigits(text, begin);
    std::size_t digits = end - begin;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fractionEnd = skipDigits(text, end + 1);
        digits += fractionEnd - (end + 1);
        end = fractionEnd;
    }
    if (digits == 0)
        return {};
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const std::size_t exponentBegin = skipSign(text, end + 1);
        const std::size_t exponentEnd = skipDigits(text, exponentBegin);
        if (exponentEnd > exponentBegin)
            end = exponentEnd;
    }
    return text.substr(0, end);
}

double doubleOfString(std::string_view text) {
    std::string_view number = leadingNumber(text);
    if (number.empty())
        return 0;
    if (number.front() == '+')
        number.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return g_ascii_strtod(std::string(number).c_str(), nullptr); // tells infinity and zero apart
    return value;
}

std::int64_t integerOfString(std::string_view text) {
    text = withoutLeadingSpace(text);
    const bool negative = !text.empty() && text.front() == '-';
    const std::size_t begin = skipSign(text, 0);
    const std::size_t end = skipDigits(text, begin);
    const std::string_view number = negative ? text.substr(0, end) : text.substr(begin, end - begin);
    std::int64_t value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return negative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    return value;
}

bool boolOfString(std::string_view text) {
    text = withoutLeadingSpace(text);
    std::size_t at = skipSign(text, 0);
    while (at < text.size() && text[at] == '0')
        ++at;
    if (at == text.size())
        return false;
    const char c = text[at];
    return c == 'Y' || c == 'y' || c == 'T' || c == 't' || (c >= '1' && c <= '9');
}

std::int64_t integerOfReal(double value) {
    if (std::isnan(value))
        return 0;
    // 2^63 is the first real that the type no longer holds; -2^63 is its least value.
    if (value >= 0x1p63)
        return std::numeric_limits<std::int64_t>::max();
    if (value < -0x1p63)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

/// Beyond the type's range the nearest value is an infinity, which the language leaves open.
float floatOfReal(double value) {
    // Half a unit above the greatest single-precision number, from where rounding no longer reaches it.
    constexpr double beyond = 0x1.ffffffp127;
    if (std::abs(value) >= beyond)
        return std::copysign(std::numeric_limits<float>::infinity(), static_cast<float>(value > 0 ? 1 : -1));
    return static_cast<float>(value);
}

} // namespace

PropertyList::PropertyList(Array value) : value_(std::move(value)) {}
PropertyList::PropertyList(Dictionary value) : value_(std::move(value)) {}

bool PropertyList::boolValue() const {
    if (const bool* value = std::get_if<bool>(&value_))
        return *value;
    if (const std::int64_t* value = std::get_if<std::int64_t>(&value_))
        return *value != 0;
    if (const double* value = std::get_if<double>(&value_))
        return *value != 0;
    if (const std::string* value = string())
        return boolOfString(*value);
    return false;
}

double PropertyList::doubleValue() const {
    if (const bool* value = std::get_if<bool>(&value_))
        return *value ? 1 : 0;
    if (const std::int64_t* value = std::get_if<std::int64_t>(&value_))
        return static_cast<double>(*value);
    if (const double* value = std::get_if<double>(&value_))
        return *value;
    if (const std::string* value = string())
        return doubleOfString(*value);
    return 0;
}

float PropertyList::floatValue() const {
    // An integer is rounded once, not to double precision first.
    if (const std::int64_t* value = std::get_if<std::int64_t>(&value_))
        return static_cast<float>(*value);
    return floatOfReal(doubleValue());
}

std::int64_t PropertyList::integerValue() const {
    if (const bool* value = std::get_if<bool>(&value_))
        return *value ? 1 : 0;
    if (const std::int64_t* value = std::get_if<std::int64_t>(&value_))
        return *value;
    if (const double* value = std::get_if<double>(&value_))
        return integerOfReal(*value);
    if (const std::string* value = string())
        return integerOfString(*value);
    return 0;
}

const PropertyList& PropertyList::operator[](std::string_view key) const {
    static const auto& none = *new PropertyList;
    const Dictionary* entries = dictionary();
    if (!entries)
        return none;
    const auto found = entries->find(key);
    return found == entries->end() ? none : found->second;
}

bool PropertyList::equals(std::string_view text) const {
    const std::string* value = string();
    return value && *value == text;
}

} // namespace foundation
