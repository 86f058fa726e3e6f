#include "hosts/lyrics-gateway/LyricText.h"

#include <gtest/gtest.h>

using gateway::tidied;
using gateway::withoutTimeTags;

TEST(LyricText, LosesItsTimeTags) {
    EXPECT_EQ(withoutTimeTags("[00:01.00]one\n[00:02.50]two\n[00:03]three\n[01:04:05]four"),
              "one\ntwo\nthree\nfour\n");
}

TEST(LyricText, LosesLinesAboutTheSong) {
    EXPECT_EQ(withoutTimeTags("[ar:Band]\n[ti:Song]\r\n[offset:+100]\n[#:remark]\n[00:01.00]one\n"), "one\n");
}

TEST(LyricText, RepeatsALineOfSeveralTimesInTheirOrder) {
    EXPECT_EQ(withoutTimeTags("[00:02.00][00:04.00]chorus\n[00:01.00]one\n[00:03.00]two\n"),
              "one\nchorus\ntwo\nchorus\n");
}

TEST(LyricText, KeepsLinesWithoutTimes) {
    EXPECT_EQ(withoutTimeTags("[00:01.00]one\n\nmore\n[00:02.00]two"), "one\n\nmore\ntwo\n");
    EXPECT_EQ(withoutTimeTags("[Chorus]\nla [x] la"), "[Chorus]\nla [x] la\n");
}

TEST(LyricText, LosesTheTimesOfWords) {
    EXPECT_EQ(withoutTimeTags("[00:01.00]<00:01.00>one <00:01.50>two <3 <b>"), "one two <3 <b>\n");
}

TEST(LyricText, SurvivesBrokenTags) {
    EXPECT_EQ(withoutTimeTags("[00:01.00\n[]\n[:]\n[99999:00]x\n[00:xx]y\n[1:]z\n[::::::]a\n"),
              "[00:01.00\n[]\n[:]\n[99999:00]x\n[00:xx]y\n[1:]z\n[::::::]a\n");
    EXPECT_EQ(withoutTimeTags(""), "");
}

TEST(LyricText, BoundsWhatRepetitionMakesOfIt) {
    std::string line;
    for (int i = 0; i < 100'000; ++i)
        line += "[00:01]";
    EXPECT_EQ(withoutTimeTags(line + "x").size(), 40'000u);
}

TEST(LyricText, IsTidiedUp) {
    EXPECT_EQ(tidied("\n\n one\r\ntwo\rthree\n \n\n"), " one\ntwo\nthree");
    EXPECT_EQ(tidied("a\x01\x1B[1mb\tc\x7F\xC2\x8A"), "a[1mb\tc");
    EXPECT_EQ(tidied("a\xFFz"), "a\uFFFDz");
    EXPECT_EQ(tidied({}), "");
    EXPECT_EQ(tidied(" \n\t\r\n"), "");
    EXPECT_EQ(tidied(std::string_view("a\0b", 3)), "a\uFFFDb");
}
