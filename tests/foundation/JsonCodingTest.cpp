#include "platform/foundation/JsonCoding.h"

#include <gtest/gtest.h>

#include <string>

using foundation::JsonLimits;
using foundation::PropertyList;

namespace {

std::optional<PropertyList> decode(const std::string& text, const JsonLimits& limits = {}) {
    return foundation::decodeJson({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, limits);
}

TEST(JsonCoding, ReadsEveryKindOfValue) {
    const auto value = decode(R"({"n": null, "b": true, "i": -7, "r": 0.5, "s": "x\u00e9", "a": [1, {}]})");
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, PropertyList(PropertyList::Dictionary{
                          {"n", {}},
                          {"b", true},
                          {"i", -7},
                          {"r", 0.5},
                          {"s", "xé"},
                          {"a", PropertyList::Array{1, PropertyList::Dictionary()}}}));
}

TEST(JsonCoding, ReadsFragments) {
    EXPECT_EQ(decode("12"), PropertyList(12));
    EXPECT_EQ(decode("\"a\""), PropertyList("a"));
    EXPECT_EQ(decode("null"), PropertyList());
}

TEST(JsonCoding, KeepsTheLastValueOfARepeatedKey) {
    EXPECT_EQ((*decode(R"({"a": 1, "a": 2})"))["a"], PropertyList(2));
}

TEST(JsonCoding, MakesARealOfAnIntegerThatIsTooLarge) {
    EXPECT_EQ(decode("18446744073709551615"), PropertyList(18446744073709551615.0));
    EXPECT_EQ(decode("9223372036854775807"), PropertyList(std::int64_t{9223372036854775807}));
}

TEST(JsonCoding, RefusesWhatIsNoJson) {
    for (const char* text :
         {"", " ", "{", "[1,]", "{\"a\":}", "nul", "1 2", "\"\\ud800\"", "\"\xff\"", "<html>"})
        EXPECT_FALSE(decode(text)) << text;
    EXPECT_FALSE(decode(std::string("1\0", 2)));
}

TEST(JsonCoding, BoundsTheDepth) {
    const auto nested = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    EXPECT_TRUE(decode(nested(64)));
    EXPECT_FALSE(decode(nested(65)));
    EXPECT_FALSE(decode(std::string(10'000'000, '[')));
}

TEST(JsonCoding, BoundsTheNumberOfValuesAndTheSize) {
    EXPECT_TRUE(decode("[1,2,3]", {.maximumValues = 4}));
    EXPECT_FALSE(decode("[1,2,3]", {.maximumValues = 3}));
    EXPECT_TRUE(decode("[1,2,3]", {.maximumBytes = 7}));
    EXPECT_FALSE(decode("[1,2,3]", {.maximumBytes = 6}));
}

} // namespace
