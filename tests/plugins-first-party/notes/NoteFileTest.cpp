#include "plugins/notes/NoteFile.h"

#include "plugins/notes/NoteDate.h"
#include "plugins/notes/NoteSummary.h"

#include <gtest/gtest.h>

#include <random>

namespace notesplugin {

namespace {

const Note example{1709208000, 1709211600, "Title\n\nwith ümlauts and 日本\n"};

} // namespace

TEST(NoteFile, ReadsBackWhatItWrites) {
    EXPECT_EQ(decodeNote(encodeNote(example)), example);
    EXPECT_EQ(decodeNote(encodeNote({})), Note{});
    const Note long_{1, 2, std::string(1'000'000, 'x')};
    EXPECT_EQ(decodeNote(encodeNote(long_)), long_);
}

TEST(NoteFile, TakesNoPartOfAFileForANote) {
    const std::string whole = encodeNote(example);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decodeNote(whole.substr(0, length))) << length;
    EXPECT_FALSE(decodeNote(whole + "x"));
    std::string zeros = whole;
    for (std::size_t i = zeros.size() - 10; i < zeros.size(); ++i)
        zeros[i] = '\0';
    EXPECT_FALSE(decodeNote(zeros));
    EXPECT_FALSE(decodeNote(std::string(whole.size(), '\0')));
}

TEST(NoteFile, BearsAnyBytes) {
    std::mt19937 random(11); // any fixed number
    for (int round = 0; round < 5000; ++round) {
        std::string bytes = encodeNote(example);
        for (int i = 0; i < 3; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        const auto note = decodeNote(bytes);
        ASSERT_TRUE(!note || isPlainText(note->text));
    }
    for (const char* head : {"vela note 1\ncreated -1\nmodified 0\nbytes 0\n\n",
                             "vela note 1\ncreated 0\nmodified 0\nbytes 99999999999999999999\n\n",
                             "vela note 1\ncreated 0\nmodified 253402300800\nbytes 0\n\n"})
        EXPECT_FALSE(decodeNote(head)) << head;
}

TEST(NoteFile, ReplacesWhatIsNoText) {
    EXPECT_EQ(plainText("a\xff"
                        "b"),
              "a\uFFFDb");
    EXPECT_EQ(plainText(std::string("a\0b", 3)), "a\uFFFDb");
    for (const char* wrong : {"\xc0\xaf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                              "\xf5\x80\x80\x80", "\xc3", "\xe6\x97"}) {
        EXPECT_FALSE(isPlainText(wrong));
        EXPECT_TRUE(isPlainText(plainText(wrong)));
    }
    EXPECT_TRUE(isPlainText("\xf4\x8f\xbf\xbf ü 日本 \U0001F600"));
}

TEST(NoteSummary, IsTheFirstTwoLinesThatHoldAnything) {
    EXPECT_EQ(summarize(1, 2, "\n  \n Title \r\n\n\ttext\nmore"), (NoteSummary{1, 2, "Title", "text"}));
    EXPECT_EQ(summarize(1, 2, " \n\t"), (NoteSummary{1, 2, "", ""}));
    std::string umlauts;
    for (int i = 0; i < 200; ++i)
        umlauts += "ä";
    const auto summary = summarize(1, 2, "x" + umlauts);
    EXPECT_LE(summary.title.size(), 160u);
    EXPECT_TRUE(isPlainText(summary.title));
}

TEST(NoteDate, NamesMomentsAsAPersonDoes) {
    const vela::plugin::WallTime now{1709208000, 0}; // 29 February 2024, 12:00 UTC
    EXPECT_EQ(describeMoment(1709208000 - 60, now), "Today 11:59");
    EXPECT_EQ(describeMoment(1709208000 - 12 * 3600 - 1, now), "Yesterday 23:59");
    EXPECT_EQ(describeMoment(1706745600, now), "1 Feb");
    EXPECT_EQ(describeMoment(1693526400, now), "1 Sep 2023");
    EXPECT_EQ(describeMoment(1709208000, {1709208000, 13 * 3600}), "Today 1:00");
    EXPECT_FALSE(describeMoment(INT64_MAX, {1e300, 0}).empty());
}

} // namespace notesplugin
