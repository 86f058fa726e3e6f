#include "platform/foundation/TextReplacement.h"

#include <gtest/gtest.h>

using foundation::replacingOccurrences;

TEST(TextReplacement, ReplacesEveryOccurrence) {
    EXPECT_EQ(replacingOccurrences("a-b-c", "-", "+"), "a+b+c");
    EXPECT_EQ(replacingOccurrences("abc", "-", "+"), "abc");
    EXPECT_EQ(replacingOccurrences("", "-", "+"), "");
}

TEST(TextReplacement, DoesNotReplaceWhatAReplacementMade) {
    EXPECT_EQ(replacingOccurrences("<<br>br>", "<br>", ""), "<br>");
    EXPECT_EQ(replacingOccurrences("aaa", "aa", "a"), "aa");
}
