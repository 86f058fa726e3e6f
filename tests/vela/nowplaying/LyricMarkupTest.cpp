#include "vela/nowplaying/LyricMarkup.h"

#include <gtest/gtest.h>

using vela::textOfLyricMarkup;

TEST(LyricMarkup, BecomesPlainText) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>one<br>two<br><br>three\",\"media\":[]}"),
              "one\ntwo\n\nthree");
}

TEST(LyricMarkup, IsOfAnotherFormWithoutItsMarker) {
    EXPECT_EQ(textOfLyricMarkup(""), std::nullopt);
    EXPECT_EQ(textOfLyricMarkup("one<br>two"), std::nullopt);
    EXPECT_EQ(textOfLyricMarkup("content"), std::nullopt);
    EXPECT_EQ(textOfLyricMarkup("\\\"content\\\""), std::nullopt);
}

TEST(LyricMarkup, LosesOpeningTagsOnly) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>a <i>b</i> <b>c</b></p>\",\"media\":1}"),
              "a b</i> <b>c</b></p>");
}

TEST(LyricMarkup, LosesTheCharacterBeforeTheCut) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>abc,\"media\":1}"), "ab");
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>,\"media\":1}"), "");
    EXPECT_EQ(textOfLyricMarkup(",\"media\"\"content\""), "");
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>abé,\"media\":1}"), "ab");
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>ab歌,\"media\":1}"), "ab");
}

TEST(LyricMarkup, IsCutAtTheFirstPlace) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>a\",\"media\":1,\"media\":2}"), "a");
}

TEST(LyricMarkup, IsKeptWholeWithoutTheCut) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>a<br>b\"}"), "a\nb\"}");
}

TEST(LyricMarkup, KeepsWhatLooksAlmostLikeATag) {
    EXPECT_EQ(textOfLyricMarkup("\"content\"<br/><BR><I>&amp;\",\"media\""), "\"content\"<br/><BR><I>&amp;");
}

TEST(LyricMarkup, IsCleanedInOrder) {
    // A line's end inside of a tag's name takes the tag apart before it would have been one.
    EXPECT_EQ(textOfLyricMarkup("\"content\"<<br>i>\",\"media\""), "\"content\"<\ni>");
    // What is put together by an earlier step is found by a later one.
    EXPECT_EQ(textOfLyricMarkup("\"content\"<b{\"content\":\"<p>r>x\",\"media\""), "\"content\"\nx");
}

TEST(LyricMarkup, LosesEveryBeginning) {
    EXPECT_EQ(textOfLyricMarkup("{\"content\":\"<p>a{\"content\":\"<p>b\",\"media\""), "ab");
}
