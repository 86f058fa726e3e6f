#include "plugins/calculator/Decimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace calculatorplugin {

namespace {

Decimal number(const std::string& text) {
    const std::optional<Decimal> value = Decimal::parse(text);
    EXPECT_TRUE(value) << text;
    return value.value_or(Decimal());
}

/// An integer divided by a power of ten, by way of its text.
Decimal scaled(std::int64_t integer, int places) {
    return number(std::to_string(integer) + "e" + std::to_string(-places));
}

std::string sumOf(const std::string& a, const std::string& b) {
    const auto result = Decimal::sum(number(a), number(b));
    return result ? result->text() : "Error";
}

std::string quotientOf(const std::string& a, const std::string& b) {
    const auto result = Decimal::quotient(number(a), number(b));
    return result ? result->text() : "Error";
}

/// dividend / divisor by hand: 34 significant digits, half to even. All of it in machine integers.
std::string longDivision(int dividend, int divisor) {
    std::string digits;
    int exponent = 0;
    int integer = dividend / divisor;
    int remainder = dividend % divisor;
    if (integer != 0)
        digits = std::to_string(integer);
    while (digits.size() < 34) {
        remainder *= 10;
        const char digit = static_cast<char>('0' + remainder / divisor);
        remainder %= divisor;
        --exponent;
        if (!digits.empty() || digit != '0')
            digits += digit;
    }
    const int twice = 2 * remainder;
    if (twice > divisor || (twice == divisor && (digits.back() - '0') % 2 == 1)) {
        std::size_t place = digits.size();
        while (place > 0 && digits[place - 1] == '9')
            digits[--place] = '0';
        if (place == 0)
            digits.insert(0, 1, '1');
        else
            ++digits[place - 1];
    }
    return digits + "e" + std::to_string(exponent);
}

} // namespace

TEST(Decimal, AddsTenthsWithoutSurprises) {
    EXPECT_EQ(sumOf("0.1", "0.2"), number("0.3").text());
    EXPECT_EQ(sumOf("1.1", "2.2"), number("3.3").text());
    EXPECT_EQ(*Decimal::difference(number("0.3"), number("0.1")), number("0.2"));
    EXPECT_EQ(*Decimal::product(number("1.1"), number("1.1")), number("1.21"));
    EXPECT_EQ(*Decimal::product(number("4.35"), number("100")), number("435"));
}

TEST(Decimal, SumsAndDifferencesOfAllSmallNumbersAreExact) {
    for (int places = 0; places <= 3; ++places)
        for (int otherPlaces = 0; otherPlaces <= 3; ++otherPlaces)
            for (int a = -101; a <= 101; a += 1)
                for (int b = -55; b <= 55; b += 1) {
                    const int most = std::max(places, otherPlaces);
                    std::int64_t first = a;
                    std::int64_t second = b;
                    for (int i = places; i < most; ++i)
                        first *= 10;
                    for (int i = otherPlaces; i < most; ++i)
                        second *= 10;
                    const Decimal x = scaled(a, places);
                    const Decimal y = scaled(b, otherPlaces);
                    ASSERT_EQ(*Decimal::sum(x, y), scaled(first + second, most)) << a << " " << b;
                    ASSERT_EQ(*Decimal::difference(x, y), scaled(first - second, most)) << a << " " << b;
                }
}

TEST(Decimal, ProductsOfAllSmallNumbersAreExact) {
    for (int places = -2; places <= 4; ++places)
        for (int a = -120; a <= 120; ++a)
            for (int b = -120; b <= 120; ++b)
                ASSERT_EQ(*Decimal::product(scaled(a, places), scaled(b, 1)), scaled(a * b, places + 1))
                    << a << " " << b;
}

TEST(Decimal, QuotientsOfAllSmallNumbersAreThoseOfLongDivision) {
    for (int a = 1; a <= 150; ++a)
        for (int b = 1; b <= 150; ++b) {
            const Decimal expected = number(longDivision(a, b));
            ASSERT_EQ(*Decimal::quotient(number(std::to_string(a)), number(std::to_string(b))), expected)
                << a << " / " << b;
            ASSERT_EQ(*Decimal::quotient(number(std::to_string(-a)), number(std::to_string(b))),
                      expected.negated())
                << a << " / " << b;
        }
}

TEST(Decimal, WhatWasMultipliedCanBeDividedAgain) {
    for (std::int64_t a = 999'999'999'000; a <= 999'999'999'040; ++a)
        for (std::int64_t b = 7'777'777'700; b <= 7'777'777'740; ++b) {
            const Decimal product = *Decimal::product(scaled(a, 5), scaled(b, 12));
            ASSERT_EQ(*Decimal::quotient(product, scaled(b, 12)), scaled(a, 5));
            ASSERT_EQ(*Decimal::quotient(product, scaled(a, 5)), scaled(b, 12));
        }
}

TEST(Decimal, KeepsThirtyFourDigitsAndRoundsHalfToEven) {
    const std::string nines(34, '9');
    EXPECT_EQ(number(nines).text(), nines + "e0");
    EXPECT_EQ(number(nines + "4").text(), nines + "e1");
    EXPECT_EQ(number(nines + "5").text(), "1e35"); // the tie goes to the even neighbour
    EXPECT_EQ(number("1" + std::string(32, '0') + "25").text(), "1" + std::string(32, '0') + "2e1");
    EXPECT_EQ(number("1" + std::string(32, '0') + "35").text(), "1" + std::string(32, '0') + "4e1");
    EXPECT_EQ(number("1" + std::string(32, '0') + "25000001").text(), "1" + std::string(32, '0') + "3e7");
    EXPECT_EQ(quotientOf("1", "3"), std::string(34, '3') + "e-34");
    EXPECT_EQ(quotientOf("2", "3"), std::string(33, '6') + "7e-34");
}

TEST(Decimal, SumsOfVeryUnequalNumbersAreRoundedFromTheExactResult) {
    EXPECT_EQ(sumOf("1", "1e-40"), "1e0");
    EXPECT_EQ(sumOf("1", "-1e-40"), "1e0");
    EXPECT_EQ(sumOf("1", "-9e-35"), std::string(34, '9') + "e-34");
    EXPECT_EQ(sumOf("1e900", "-1e-900"), "1e900");
    EXPECT_EQ(sumOf("1e30", "1e-3"), "1" + std::string(32, '0') + "1e-3");
    EXPECT_EQ(sumOf("1", "5e-34"), "1e0"); // a tie
    EXPECT_EQ(sumOf("5.1e-34", "1"), "1" + std::string(32, '0') + "1e-33");
}

TEST(Decimal, HasOneZero) {
    EXPECT_EQ(number("-0"), Decimal());
    EXPECT_EQ(number("0.000"), Decimal());
    EXPECT_EQ(number("0e77"), Decimal());
    EXPECT_EQ(sumOf("-2.5", "2.5"), "0");
    EXPECT_EQ(*Decimal::product(number("-3"), Decimal()), Decimal());
    EXPECT_EQ(quotientOf("0", "-3"), "0");
    EXPECT_FALSE(Decimal().negated().isNegative());
}

TEST(Decimal, AnswersNothingForDivisionsByZeroAndTooGreatNumbers) {
    EXPECT_FALSE(Decimal::quotient(number("1"), Decimal()));
    EXPECT_FALSE(Decimal::quotient(Decimal(), Decimal()));
    EXPECT_FALSE(Decimal::product(number("1e500"), number("1e500")));
    EXPECT_TRUE(Decimal::product(number("1e500"), number("9.9e499")));
    EXPECT_FALSE(Decimal::sum(number("9e999"), number("1e999")));
    EXPECT_FALSE(Decimal::quotient(number("1e999"), number("0.1")));
    EXPECT_FALSE(Decimal::parse("1e1000"));
    EXPECT_EQ(*Decimal::product(number("1e-500"), number("1e-500")), Decimal());
    EXPECT_EQ(number("1e-100000"), Decimal());
}

TEST(Decimal, ReadsOnlyNumbers) {
    for (const char* text : {"", "-", ".", "-.", "e5", "1e", "1ee5", "1.2.3", "--1", "+1", "1 ", " 1", "0x10",
                             "nan", "inf", "1,000", "1e5.0", "1e99999999999999999999", "\xff"})
        EXPECT_FALSE(Decimal::parse(text)) << text;
    EXPECT_FALSE(Decimal::parse(std::string(201, '1')));
    EXPECT_EQ(number("5."), number("5"));
    EXPECT_EQ(number(".5"), number("0.5"));
    EXPECT_EQ(number("1.50e+2"), number("150"));
    EXPECT_EQ(number("0000000000000000000000000000000000000000012"), number("12"));
}

TEST(Decimal, ReadsBackWhatItWrites) {
    for (const char* text :
         {"0", "1", "-1", "0.1", "-123.456", "1e999", "-1e-999", "700", "12345678901234567890"})
        EXPECT_EQ(number(number(text).text()), number(text)) << text;
}

TEST(Decimal, RoundsToDigitsAndToPlaces) {
    EXPECT_EQ(*number("123.456").roundedToDigits(4), number("123.5"));
    EXPECT_EQ(*number("99.96").roundedToDigits(3), number("100"));
    EXPECT_EQ(*number("0.125").roundedToPlaces(2), number("0.12"));
    EXPECT_EQ(*number("0.135").roundedToPlaces(2), number("0.14"));
    EXPECT_EQ(*number("0.5").roundedToPlaces(0), Decimal());
    EXPECT_EQ(*number("0.51").roundedToPlaces(0), number("1"));
    EXPECT_EQ(*number("0.004").roundedToPlaces(1), Decimal());
    EXPECT_EQ(*number("-1.5").roundedToPlaces(0), number("-2"));
}

} // namespace calculatorplugin
