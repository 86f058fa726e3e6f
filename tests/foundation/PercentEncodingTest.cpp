#include "platform/foundation/PercentEncoding.h"

#include <gtest/gtest.h>

using foundation::percentDecoded;
using foundation::percentEncoded;

TEST(PercentEncoding, KeepsLettersDigitsAndWhatIsAllowed) {
    EXPECT_EQ(percentEncoded("aZ09-._~ &=", foundation::unreservedPunctuation), "aZ09-._~%20%26%3D");
    EXPECT_EQ(percentEncoded("a&b c", "&"), "a&b%20c");
}

TEST(PercentEncoding, EncodesEveryByteOfAnotherCharacter) {
    EXPECT_EQ(percentEncoded("é", ""), "%C3%A9");
    EXPECT_EQ(percentEncoded(std::string("\0\n", 2), ""), "%00%0A");
}

TEST(PercentEncoding, DecodesWhatItEncoded) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(percentDecoded(percentEncoded(all, "")), all);
}

TEST(PercentEncoding, LeavesPercentSignsThatBeginNothing) {
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%zz+%41"), "%zz+A");
}
