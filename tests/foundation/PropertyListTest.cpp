#include "platform/foundation/PropertyList.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace foundation {
namespace {

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

TEST(PropertyList, ReadsNumbersOtherThanZeroAsTrue) {
    EXPECT_TRUE(PropertyList(true).boolValue());
    EXPECT_TRUE(PropertyList(-1).boolValue());
    EXPECT_TRUE(PropertyList(0.25).boolValue());
    EXPECT_FALSE(PropertyList(false).boolValue());
    EXPECT_FALSE(PropertyList(0).boolValue());
    EXPECT_FALSE(PropertyList(-0.0).boolValue());
}

TEST(PropertyList, ReadsStringsAsBooleansByTheirFirstTellingCharacter) {
    for (const char* yes :
         {"YES", "yes", "true", "T", "1", "9", "  +1", "-007", "000y", "\t\n5", "Yellow", "10"})
        EXPECT_TRUE(PropertyList(yes).boolValue()) << yes;
    for (const char* no :
         {"", "NO", "false", "0", "000", "-0", "0.9", "on", "x1", "+-1", " ", "- 1", "enabled"})
        EXPECT_FALSE(PropertyList(no).boolValue()) << no;
}

TEST(PropertyList, AnswersNothingForValuesOfOtherTypes) {
    for (const PropertyList& value :
         {PropertyList(), PropertyList(PropertyList::Array{1}),
          PropertyList(PropertyList::Dictionary{{"1", 1}}), PropertyList(PropertyList::Data{1}),
          PropertyList(PropertyList::Date{1})}) {
        EXPECT_FALSE(value.boolValue());
        EXPECT_EQ(value.floatValue(), 0.0f);
        EXPECT_EQ(value.doubleValue(), 0.0);
        EXPECT_EQ(value.integerValue(), 0);
        EXPECT_EQ(value.string(), nullptr);
    }
}

TEST(PropertyList, TakesTheNumberThatAStringBeginsWith) {
    EXPECT_EQ(PropertyList("0.35").floatValue(), 0.35f);
    EXPECT_EQ(PropertyList("  -12.5points").doubleValue(), -12.5);
    EXPECT_EQ(PropertyList("+3").doubleValue(), 3);
    EXPECT_EQ(PropertyList(".5").doubleValue(), 0.5);
    EXPECT_EQ(PropertyList("5.").doubleValue(), 5);
    EXPECT_EQ(PropertyList("1e2").doubleValue(), 100);
    EXPECT_EQ(PropertyList("1e").doubleValue(), 1);
    EXPECT_EQ(PropertyList("1e+").doubleValue(), 1);
    EXPECT_EQ(PropertyList("9.3.3").doubleValue(), 9.3);
    EXPECT_EQ(PropertyList("0,35").doubleValue(), 0);
}

TEST(PropertyList, TakesNoOtherWordsForNumbers) {
    for (const char* text : {"", "inf", "nan", "-infinity", "e5", ".", "-", "+-1", "- 1", "abc 3"})
        EXPECT_EQ(PropertyList(text).doubleValue(), 0) << text;
    EXPECT_EQ(PropertyList("0x10").doubleValue(), 0);
}

TEST(PropertyList, RunsOverToInfinityAndUnderToZero) {
    EXPECT_EQ(PropertyList("1e999").doubleValue(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(PropertyList("-1e999").doubleValue(), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(PropertyList("1e-999").doubleValue(), 0);
    EXPECT_EQ(PropertyList(std::string(400, '9')).doubleValue(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(PropertyList(1e300).floatValue(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(PropertyList(-1e300).floatValue(), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(PropertyList(3.4028234663852886e38).floatValue(), std::numeric_limits<float>::max());
}

TEST(PropertyList, RoundsIntegersToSinglePrecisionOnce) {
    // Rounded to double precision first, this would come down to the even neighbour.
    constexpr std::int64_t value = (std::int64_t{1} << 60) + (std::int64_t{1} << 36) + 1;
    EXPECT_EQ(PropertyList(value).floatValue(), static_cast<float>(value));
}

TEST(PropertyList, TruncatesAndClampsToIntegers) {
    EXPECT_EQ(PropertyList(2.9).integerValue(), 2);
    EXPECT_EQ(PropertyList(-2.9).integerValue(), -2);
    EXPECT_EQ(PropertyList(1e30).integerValue(), greatest);
    EXPECT_EQ(PropertyList(0x1p63).integerValue(), greatest);
    EXPECT_EQ(PropertyList(-0x1p63).integerValue(), least);
    EXPECT_EQ(PropertyList(-1e30).integerValue(), least);
    EXPECT_EQ(PropertyList(std::nan("")).integerValue(), 0);
    EXPECT_EQ(PropertyList("99999999999999999999").integerValue(), greatest);
    EXPECT_EQ(PropertyList("-99999999999999999999").integerValue(), least);
    EXPECT_EQ(PropertyList(" +12.7").integerValue(), 12);
    EXPECT_EQ(PropertyList("0x10").integerValue(), 0);
    EXPECT_EQ(PropertyList("--5").integerValue(), 0);
    EXPECT_EQ(PropertyList(true).integerValue(), 1);
}

TEST(PropertyList, EqualsATextOnlyToTheLetter) {
    EXPECT_TRUE(PropertyList("dark").equals("dark"));
    EXPECT_FALSE(PropertyList("Dark").equals("dark"));
    EXPECT_FALSE(PropertyList(1).equals("1"));
    EXPECT_FALSE(PropertyList().equals(""));
}

TEST(PropertyList, AnswersNilForKeysItDoesNotHold) {
    const PropertyList value = PropertyList::Dictionary{{"Enable", true}};
    EXPECT_TRUE(value["Enable"].boolValue());
    EXPECT_TRUE(value["enable"].isNil());
    EXPECT_TRUE(value["Enable"]["Enable"].isNil());
    EXPECT_TRUE(PropertyList()["Enable"].isNil());
}

TEST(PropertyList, KeepsTheTypesOfNumbersApart) {
    EXPECT_NE(PropertyList(true), PropertyList(1));
    EXPECT_NE(PropertyList(1), PropertyList(1.0));
    EXPECT_EQ(PropertyList("a"), PropertyList(std::string("a")));
}

} // namespace
} // namespace foundation
