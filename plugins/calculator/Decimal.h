// A decimal number as people write it: up to 34 significant digits times a power of ten.
//
// Sums, differences and products are exact as long as they fit into 34 digits. What does not fit, and every
// quotient that goes on for longer, is rounded once, half to even, from the exact result. There is one zero,
// and it has no sign.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace calculatorplugin {

class Decimal {
public:
    static constexpr int precision = 34;
    /// Numbers reach up to 9.99…e999; nearer to zero than 1e-999 they become zero.
    static constexpr int greatestExponent = 999;

    Decimal() = default;
    /// "-12.5", "0.10", "5.", "1e-7"; nothing for what is not a number, is too great, or is longer than 200
    /// characters. More digits than fit are rounded.
    static std::optional<Decimal> parse(std::string_view text);

    // Nothing when the result is too great, or on a division by zero.
    static std::optional<Decimal> sum(const Decimal& first, const Decimal& second);
    static std::optional<Decimal> difference(const Decimal& first, const Decimal& second);
    static std::optional<Decimal> product(const Decimal& first, const Decimal& second);
    static std::optional<Decimal> quotient(const Decimal& dividend, const Decimal& divisor);

    bool isZero() const { return coefficient_.empty(); }
    bool isNegative() const { return negative_; }
    Decimal negated() const;
    /// The power of ten of the first digit: 2 for 123.4; 0 for zero.
    int exponentOfFirstDigit() const;
    /// All digits from the first that is not zero to the last that is not; empty for zero.
    const std::string& digits() const { return coefficient_; }

    /// With at most so many significant digits (1 or more); nothing when that rounds beyond the greatest
    /// number.
    std::optional<Decimal> roundedToDigits(int count) const;
    /// With at most so many digits after the point.
    std::optional<Decimal> roundedToPlaces(int places) const;

    /// What parse() makes the same number of: "-125e-1".
    std::string text() const;

    friend bool operator==(const Decimal&, const Decimal&) = default;

private:
    Decimal(bool negative, std::string coefficient, int exponent);
    static std::optional<Decimal> rounded(bool negative, std::string coefficient, int exponent, int count);

    bool negative_ = false;
    std::string coefficient_; // neither begins nor ends with '0'
    int exponent_ = 0;        // of the last digit
};

} // namespace calculatorplugin
