#include "plugins/calculator/NumberText.h"

#include <gtest/gtest.h>

#include <string>

namespace calculatorplugin {

namespace {

std::string shown(const std::string& text) {
    return NumberText::ofValue(Decimal::parse(text).value());
}

} // namespace

TEST(NumberText, SeparatesThousands) {
    EXPECT_EQ(shown("0"), "0");
    EXPECT_EQ(shown("999"), "999");
    EXPECT_EQ(shown("1000"), "1,000");
    EXPECT_EQ(shown("-1234567.891"), "−1,234,567.891");
    EXPECT_EQ(shown("9999999999999999"), "9,999,999,999,999,999");
}

TEST(NumberText, ShowsSmallNumbersInFull) {
    EXPECT_EQ(shown("0.5"), "0.5");
    EXPECT_EQ(shown("-0.001"), "−0.001");
    EXPECT_EQ(shown("0.0000001"), "0.0000001");
    EXPECT_EQ(shown("0.3333333333333333333333"), "0.333333333333333");
}

TEST(NumberText, RoundsToSixteenDigits) {
    EXPECT_EQ(shown("1.9999999999999999999"), "2");
    EXPECT_EQ(shown("1234567890.12345678901"), "1,234,567,890.123457");
    EXPECT_EQ(shown("0.9999999999999999999"), "1");
    EXPECT_EQ(shown("9.9999999999999999999"), "10");
}

TEST(NumberText, GoesToPowersOfTenWhereTheDigitsEnd) {
    EXPECT_EQ(shown("1e16"), "1e16");
    EXPECT_EQ(shown("9999999999999999.9"), "1e16");
    EXPECT_EQ(shown("-1.5e20"), "−1.5e20");
    EXPECT_EQ(shown("1.23456789012345e20"), "1.23456789e20");
    EXPECT_EQ(shown("0.00000001"), "1e−8");
    EXPECT_EQ(shown("9.9999999999999e999"), "9.999999999e999"); // rounded up it would be no number any more
}

TEST(NumberText, KeepsWhatIsTyped) {
    EXPECT_EQ(NumberText::ofTyping("0"), "0");
    EXPECT_EQ(NumberText::ofTyping("-0"), "−0");
    EXPECT_EQ(NumberText::ofTyping("1234."), "1,234.");
    EXPECT_EQ(NumberText::ofTyping("-1234.500"), "−1,234.500");
    EXPECT_EQ(NumberText::ofTyping("0.00001234"), "0.00001234");
}

} // namespace calculatorplugin
