#include "NumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace calculatorplugin {

namespace {

constexpr std::string_view minus = "\u2212";
constexpr int scientificDigits = 10;
/// What is smaller would lose too many digits behind its leading zeros.
constexpr int smallestPlainExponent = -7;

/// "1234567" as "1,234,567".
std::string grouped(std::string_view integer) {
    std::string result;
    for (std::size_t i = 0; i < integer.size(); ++i) {
        if (i > 0 && (integer.size() - i) % 3 == 0)
            result += ',';
        result += integer[i];
    }
    return result;
}

} // namespace

std::string NumberText::ofTyping(std::string_view typed) {
    std::string result;
    if (!typed.empty() && typed.front() == '-') {
        result = minus;
        typed.remove_prefix(1);
    }
    const std::size_t point = std::min(typed.find('.'), typed.size());
    return result + grouped(typed.substr(0, point)) + std::string(typed.substr(point));
}

std::string NumberText::ofValue(const Decimal& value) {
    const int exponent = value.exponentOfFirstDigit();
    if (exponent < smallestPlainExponent || exponent >= mostDigits)
        return scientific(value);
    const Decimal shown = value.roundedToPlaces(mostDigits - 1 - std::max(0, exponent)).value_or(value);
    // Rounding may have made one digit more of it.
    return shown.exponentOfFirstDigit() >= mostDigits ? scientific(shown) : plain(shown);
}

std::string NumberText::plain(const Decimal& value) {
    const int exponent = value.exponentOfFirstDigit();
    std::string digits = value.digits();
    if (exponent < 0)
        digits.insert(0, static_cast<std::size_t>(-exponent), '0');
    const std::size_t integerDigits = static_cast<std::size_t>(std::max(0, exponent)) + 1;
    if (digits.size() < integerDigits)
        digits.append(integerDigits - digits.size(), '0');
    std::string text = value.isNegative() ? "-" : "";
    text += digits.substr(0, integerDigits);
    if (digits.size() > integerDigits)
        text += "." + digits.substr(integerDigits);
    return ofTyping(text);
}

std::string NumberText::scientific(const Decimal& value) {
    const Decimal shown = value.roundedToDigits(scientificDigits).value_or(value);
    std::string text(shown.isNegative() ? minus : "");
    text += shown.digits().front();
    if (shown.digits().size() > 1)
        text += "." + shown.digits().substr(1, scientificDigits - 1);
    const int exponent = shown.exponentOfFirstDigit();
    return text + "e" + (exponent < 0 ? std::string(minus) : "") + std::to_string(std::abs(exponent));
}

} // namespace calculatorplugin
