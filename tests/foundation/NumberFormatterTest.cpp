#include "platform/foundation/NumberFormatter.h"

#include <limits>

#include <gtest/gtest.h>

namespace foundation {
namespace {

TEST(NumberFormatter, WritesPercentages) {
    NumberFormatter formatter;
    formatter.setNumberStyle(NumberFormatterStyle::Percent);
    EXPECT_EQ(formatter.stringFromNumber(0), "0%");
    EXPECT_EQ(formatter.stringFromNumber(0.5), "50%");
    EXPECT_EQ(formatter.stringFromNumber(1), "100%");
    EXPECT_EQ(formatter.stringFromNumber(0.004), "0%");
    EXPECT_EQ(formatter.stringFromNumber(12.5), "1,250%");
    EXPECT_EQ(formatter.stringFromNumber(-0.25), "-25%");
}

TEST(NumberFormatter, RoundsHalvesToTheEvenUnit) {
    NumberFormatter formatter;
    EXPECT_EQ(formatter.stringFromNumber(0.5), "0");
    EXPECT_EQ(formatter.stringFromNumber(1.5), "2");
    EXPECT_EQ(formatter.stringFromNumber(2.5), "2");
    EXPECT_EQ(formatter.stringFromNumber(-0.4), "0");
}

TEST(NumberFormatter, WritesNumbersOfAnySize) {
    NumberFormatter formatter;
    EXPECT_EQ(formatter.stringFromNumber(1234567), "1,234,567");
    EXPECT_EQ(formatter.stringFromNumber(999), "999");
    EXPECT_EQ(formatter.stringFromNumber(std::numeric_limits<double>::infinity()), "∞");
    EXPECT_EQ(formatter.stringFromNumber(-std::numeric_limits<double>::infinity()), "-∞");
    EXPECT_EQ(formatter.stringFromNumber(std::numeric_limits<double>::quiet_NaN()), "NaN");
    EXPECT_GT(formatter.stringFromNumber(std::numeric_limits<double>::max()).size(), 308u);
}

} // namespace
} // namespace foundation
