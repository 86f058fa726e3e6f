#include "Decimal.h"

#include "DigitArithmetic.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

namespace calculatorplugin {

namespace {

constexpr std::size_t longestText = 200;
/// Far beyond every exponent that can come of two numbers, so that sums of exponents never overflow.
constexpr int farthestWrittenExponent = 100'000;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::optional<int> parseExponent(std::string_view text) {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    int exponent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return std::clamp(exponent, -farthestWrittenExponent, farthestWrittenExponent);
}

/// The same number with `zeros` more zeros at its end.
std::string shifted(const std::string& coefficient, int zeros) {
    return coefficient.empty() ? coefficient
                               : coefficient + std::string(static_cast<std::size_t>(zeros), '0');
}

/// Whether a number that keeps `kept` and loses `lost`, which is not empty, is to be rounded away from zero.
bool roundsUp(const std::string& kept, const std::string& lost) {
    if (lost.front() != '5')
        return lost.front() > '5';
    const bool isTie = lost.find_first_not_of('0', 1) == std::string::npos;
    const bool isOdd = !kept.empty() && (kept.back() - '0') % 2 == 1;
    return !isTie || isOdd;
}

} // namespace

Decimal::Decimal(bool negative, std::string coefficient, int exponent)
    : negative_(negative), coefficient_(std::move(coefficient)), exponent_(exponent) {}

/// `count` may be 0 or less: then all digits are lost.
std::optional<Decimal> Decimal::rounded(bool negative, std::string coefficient, int exponent, int count) {
    coefficient = digits::trimmed(std::move(coefficient));
    const int excess = static_cast<int>(coefficient.size()) - count;
    if (excess > static_cast<int>(coefficient.size()))
        return Decimal();
    if (excess > 0) {
        const std::string lost = coefficient.substr(coefficient.size() - static_cast<std::size_t>(excess));
        coefficient.resize(coefficient.size() - lost.size());
        if (roundsUp(coefficient, lost))
            coefficient = digits::sum(coefficient, "1");
        exponent += excess;
    }
    const std::size_t end = coefficient.find_last_not_of('0');
    if (end == std::string::npos)
        return Decimal();
    exponent += static_cast<int>(coefficient.size() - end - 1);
    coefficient.resize(end + 1);
    const int first = exponent + static_cast<int>(coefficient.size()) - 1;
    if (first > greatestExponent)
        return std::nullopt;
    return first < -greatestExponent ? Decimal() : Decimal(negative, std::move(coefficient), exponent);
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
    if (text.size() > longestText)
        return std::nullopt;
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    int exponent = 0;
    if (const std::size_t mark = text.find('e'); mark != std::string_view::npos) {
        const std::optional<int> written = parseExponent(text.substr(mark + 1));
        if (!written)
            return std::nullopt;
        exponent = *written;
        text = text.substr(0, mark);
    }
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string coefficient(text.substr(0, point));
    if (point < text.size()) {
        const std::string_view fraction = text.substr(point + 1);
        coefficient += fraction;
        exponent -= static_cast<int>(fraction.size());
    }
    if (coefficient.empty() || !std::all_of(coefficient.begin(), coefficient.end(), isDigit))
        return std::nullopt;
    return rounded(negative, std::move(coefficient), exponent, precision);
}

std::optional<Decimal> Decimal::sum(const Decimal& first, const Decimal& second) {
    if (first.isZero())
        return second;
    if (second.isZero())
        return first;
    const int exponent = std::min(first.exponent_, second.exponent_);
    const std::string one = shifted(first.coefficient_, first.exponent_ - exponent);
    const std::string other = shifted(second.coefficient_, second.exponent_ - exponent);
    if (first.negative_ == second.negative_)
        return rounded(first.negative_, digits::sum(one, other), exponent, precision);
    if (digits::compare(one, other) >= 0)
        return rounded(first.negative_, digits::difference(one, other), exponent, precision);
    return rounded(second.negative_, digits::difference(other, one), exponent, precision);
}

std::optional<Decimal> Decimal::difference(const Decimal& first, const Decimal& second) {
    return sum(first, second.negated());
}

std::optional<Decimal> Decimal::product(const Decimal& first, const Decimal& second) {
    return rounded(first.negative_ != second.negative_,
                   digits::product(first.coefficient_, second.coefficient_),
                   first.exponent_ + second.exponent_, precision);
}

std::optional<Decimal> Decimal::quotient(const Decimal& dividend, const Decimal& divisor) {
    if (divisor.isZero())
        return std::nullopt;
    const int zeros = std::max(
        0, precision + 2 + static_cast<int>(divisor.coefficient_.size() - dividend.coefficient_.size()));
    auto [coefficient, remainder] =
        digits::quotient(shifted(dividend.coefficient_, zeros), divisor.coefficient_);
    int exponent = dividend.exponent_ - divisor.exponent_ - zeros;
    if (!remainder.empty()) {
        // The quotient goes on: one more digit keeps what only looks like a tie from being taken for one.
        coefficient += '1';
        --exponent;
    }
    return rounded(dividend.negative_ != divisor.negative_, std::move(coefficient), exponent, precision);
}

Decimal Decimal::negated() const {
    return isZero() ? *this : Decimal(!negative_, coefficient_, exponent_);
}

int Decimal::exponentOfFirstDigit() const {
    return isZero() ? 0 : exponent_ + static_cast<int>(coefficient_.size()) - 1;
}

std::optional<Decimal> Decimal::roundedToDigits(int count) const {
    return rounded(negative_, coefficient_, exponent_, std::max(1, count));
}

std::optional<Decimal> Decimal::roundedToPlaces(int places) const {
    return rounded(negative_, coefficient_, exponent_, exponentOfFirstDigit() + 1 + places);
}

std::string Decimal::text() const {
    if (isZero())
        return "0";
    return (negative_ ? "-" : "") + coefficient_ + "e" + std::to_string(exponent_);
}

} // namespace calculatorplugin
