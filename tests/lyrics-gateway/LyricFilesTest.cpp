#include "hosts/lyrics-gateway/LyricFiles.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <fstream>

using gateway::LyricFiles;

namespace {

struct LyricFilesTest : testing::Test {
    tests::TemporaryDirectory directory;
    LyricFiles files{{directory.path() / "missing", directory.path()}};

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(directory.path() / name, std::ios::binary) << content;
    }
};

TEST_F(LyricFilesTest, FindsATextByArtistAndTitle) {
    write("Band - Song.txt", "one\r\ntwo\n");
    EXPECT_EQ(files.find("Band", "Song"), "one\ntwo");
    EXPECT_EQ(files.find("Song", "Band"), std::nullopt);
    EXPECT_EQ(files.find("Band", "Son"), std::nullopt);
}

TEST_F(LyricFilesTest, FindsATextWithTimeTags) {
    write("Band - Song.lrc", "[ar:Band]\n[00:01.00]one\n");
    EXPECT_EQ(files.find("Band", "Song"), "one");
}

TEST_F(LyricFilesTest, PrefersThePlainText) {
    write("Band - Song.lrc", "[00:01.00]timed\n");
    write("Band - Song.txt", "plain");
    EXPECT_EQ(files.find("Band", "Song"), "plain");
}

TEST_F(LyricFilesTest, ComparesNamesWithoutCase) {
    write("BÉ - ÇA.txt", "text");
    EXPECT_EQ(files.find("bé", "ça"), "text");
    EXPECT_EQ(files.find("be\xCC\x81", "ca\xCC\xA7"), std::nullopt);
    EXPECT_EQ(files.find("be\xCC\x81", "c\xCC\xA7"
                                       "a"),
              "text");
}

TEST_F(LyricFilesTest, TakesAnUnderscoreForASlash) {
    write("AC_DC - Either_Or.txt", "text");
    EXPECT_EQ(files.find("AC/DC", "Either/Or"), "text");
}

TEST_F(LyricFilesTest, SeesAFileThatWasAdded) {
    EXPECT_EQ(files.find("Band", "Song"), std::nullopt);
    write("Band - Song.txt", "text");
    EXPECT_EQ(files.find("Band", "Song"), "text");
}

TEST_F(LyricFilesTest, TakesNoNameForAPath) {
    std::filesystem::create_directory(directory.path() / "x");
    write("x/secret.txt", "secret");
    write("secret.txt", "secret");
    for (const char* artist : {"..", "x", "x/secret", "/etc", "../x", ""})
        for (const char* title : {"secret", "../secret", "passwd", "", "x/secret"})
            EXPECT_EQ(files.find(artist, title), std::nullopt) << artist << " " << title;
}

TEST_F(LyricFilesTest, TakesNothingThatIsNoSmallTextFile) {
    write("Band - Big.txt", std::string(LyricFiles::largestFile + 1, 'x'));
    write("Band - Empty.txt", "\n\n");
    write("Band - Other.md", "text");
    std::filesystem::create_directory(directory.path() / "Band - Folder.txt");
    for (const char* title : {"Big", "Empty", "Other", "Folder"})
        EXPECT_EQ(files.find("Band", title), std::nullopt) << title;
}

} // namespace
