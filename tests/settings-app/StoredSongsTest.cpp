#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>

namespace settings {
namespace {

class StoredSongsTest : public SettingsProgramTest {
protected:
    void storeLyrics(const PropertyList::Dictionary& lyrics) {
        files().createDirectories("/var/mobile/Documents/Vela");
        ASSERT_TRUE(files().writeDictionaryAtomically(lyricsFile, lyrics));
    }
    static std::vector<std::string> storedKeys() {
        std::vector<std::string> keys;
        for (const auto& [key, lyric] : dictionary(lyricsFile))
            keys.push_back(key);
        return keys;
    }
    /// In the root window's coordinates.
    static int middleX(const Accessible::Frame& frame) { return frame.x + frame.width / 2 + windowBorder; }
    static int middleY(const Accessible::Frame& frame) { return frame.y + frame.height / 2 + windowBorder; }

    /// Where a control lies once its page has come to rest.
    static Accessible::Frame restingFrame(const Accessible& control) {
        Accessible::Frame before = control.frame();
        int rests = 0;
        waitUntil([&] {
            const Accessible::Frame now = control.frame();
            rests = now.x == before.x && now.y == before.y ? rests + 1 : 0;
            before = now;
            return rests >= 15; // a third of a second
        });
        return before;
    }

    /// What a window without a shadow has around it.
    static constexpr int windowBorder = 5;
};

TEST_F(StoredSongsTest, DeletesALyricByTheDeleteKey) {
    storeLyrics({{"Alpha_@_A", "one"}, {"Beta_@_B", "two"}, {"Gamma_@_C", "three"}});
    start();
    openPage({"Configuration", "Manage lyrics"});
    const Accessible row = find("list item", "Beta_@_B");
    focus(row);
    desktop().key("Delete");
    EXPECT_TRUE(waitUntil([] { return storedKeys().size() == 2; }));
    EXPECT_THAT(storedKeys(), testing::ElementsAre("Alpha_@_A", "Gamma_@_C"));
    EXPECT_TRUE(waitUntil([&] { return !has("list item", "Beta_@_B"); }));
    EXPECT_TRUE(has("list item", "Gamma_@_C"));
    // The focus stays in the list, so that the next key deletes the next row.
    desktop().key("Delete");
    EXPECT_TRUE(waitUntil([] { return storedKeys().size() == 1; }));
}

TEST_F(StoredSongsTest, DeletesALyricByASwipeAndItsButton) {
    storeLyrics({{"Alpha_@_A", "one"}, {"Beta_@_B", "two"}});
    start();
    openPage({"Configuration", "Manage lyrics"});
    const auto frame = restingFrame(find("list item", "Alpha_@_A"));
    const int y = middleY(frame);
    EXPECT_FALSE(has("push button", "Delete Alpha_@_A"));
    desktop().input({"mousemove", std::to_string(middleX(frame)), std::to_string(y), "mousedown", "1"});
    for (int x = 20; x <= 120; x += 20)
        desktop().input({"mousemove", std::to_string(middleX(frame) - x), std::to_string(y)});
    desktop().input({"mouseup", "1"});
    const Accessible button = find("push button", "Delete Alpha_@_A");
    EXPECT_THAT(storedKeys(), testing::ElementsAre("Alpha_@_A", "Beta_@_B"));
    EXPECT_TRUE(has("list item", "Beta_@_B")) << "a swipe is no tap";
    EXPECT_TRUE(button.activate());
    EXPECT_TRUE(waitUntil([] { return storedKeys() == std::vector<std::string>{"Beta_@_B"}; }));
}

TEST_F(StoredSongsTest, EditsALyricAndSavesIt) {
    storeLyrics({{"Alpha_@_A", "one\ntwo"}, {"Beta_@_B", "kept"}});
    start();
    openPage({"Configuration", "Manage lyrics", "Alpha_@_A"});
    const Accessible editor = find("text", "Text");
    EXPECT_EQ(editor.text(), "one\ntwo");
    focus(editor);
    desktop().key("ctrl+End");
    desktop().key("Return");
    desktop().input({"type", "--delay", "20", "three"});
    ASSERT_TRUE(waitUntil([&] { return editor.text() == "one\ntwo\nthree"; })) << editor.text();
    press("push button", "Save");
    EXPECT_TRUE(find("list item", "Alpha_@_A"));
    EXPECT_TRUE(waitUntil(
        [] { return PropertyList(dictionary(lyricsFile))["Alpha_@_A"].equals("one\ntwo\nthree"); }));
    EXPECT_TRUE(PropertyList(dictionary(lyricsFile))["Beta_@_B"].equals("kept"));
}

TEST_F(StoredSongsTest, SavesAnEmptiedLyricAsEmpty) {
    storeLyrics({{"Alpha_@_A", "one"}});
    start();
    openPage({"Configuration", "Manage lyrics", "Alpha_@_A"});
    const Accessible editor = find("text", "Text");
    focus(editor);
    desktop().key("ctrl+a");
    desktop().key("BackSpace");
    ASSERT_TRUE(waitUntil([&] { return editor.text().empty(); }));
    press("push button", "Save");
    EXPECT_TRUE(waitUntil([] { return PropertyList(dictionary(lyricsFile))["Alpha_@_A"].equals(""); }));
}

TEST_F(StoredSongsTest, GoesOnWritingWhileTheWindowChangesItsSize) {
    storeLyrics({{"Alpha_@_A", "one"}});
    start();
    openPage({"Configuration", "Manage lyrics", "Alpha_@_A"});
    focus(find("text", "Text"));
    desktop().key("ctrl+End");
    desktop().input({"type", "two"});
    ASSERT_TRUE(waitUntil([&] { return find("text", "Text").text() == "onetwo"; }));
    // As a keyboard on the screen makes a window lower.
    const int before = find("text", "Text").frame().height;
    desktop().input({"search", "--onlyvisible", "--name", "^Settings$", "windowsize", "460", "500"});
    ASSERT_TRUE(waitUntil([&] { return find("text", "Text").frame().height < before - 100; }));
    EXPECT_TRUE(find("text", "Text").has(ATSPI_STATE_FOCUSED));
    desktop().input({"type", "three"});
    EXPECT_TRUE(waitUntil([&] { return find("text", "Text").text() == "onetwothree"; }));
    press("push button", "Save");
    EXPECT_TRUE(
        waitUntil([] { return PropertyList(dictionary(lyricsFile))["Alpha_@_A"].equals("onetwothree"); }));
}

TEST_F(StoredSongsTest, LeavesALyricAloneThatIsNotSaved) {
    storeLyrics({{"Alpha_@_A", "one"}});
    start();
    openPage({"Configuration", "Manage lyrics", "Alpha_@_A"});
    const Accessible editor = find("text", "Text");
    focus(editor);
    desktop().input({"type", "more"});
    ASSERT_TRUE(waitUntil([&] { return editor.text() == "moreone"; }));
    desktop().key("alt+Left");
    EXPECT_TRUE(find("list item", "Alpha_@_A"));
    EXPECT_TRUE(PropertyList(dictionary(lyricsFile))["Alpha_@_A"].equals("one"));
}

TEST_F(StoredSongsTest, ShowsKeysWithMarkupAndLineBreaksAsTheyAre) {
    storeLyrics({{"<b>Bold & brash</b>_@_A", "one"}, {"Two\nlines_@_B", "two"}});
    start();
    openPage({"Configuration", "Manage lyrics"});
    EXPECT_TRUE(find("list item", "<b>Bold & brash</b>_@_A"));
    openPage({"Two\nlines_@_B"});
    EXPECT_EQ(find("text", "Text").text(), "two");
}

TEST_F(StoredSongsTest, BuildsWidgetsForRowsInSightAlone) {
    PropertyList::Dictionary lyrics;
    for (int song = 0; song < 5000; ++song)
        lyrics["Song " + std::to_string(10'000 + song) + "_@_Artist"] = "words";
    storeLyrics(lyrics);
    start();
    openPage({"Configuration", "Manage lyrics"});
    find("list item", "Song 10000_@_Artist");
    const auto rows = window().all([](const Accessible& object) { return object.role() == "list item"; });
    EXPECT_LT(rows.size(), 400u);
    // To the end, and the last one is there.
    desktop().key("End");
    const Accessible last = find("list item", "Song 14999_@_Artist");
    focus(last);
    desktop().key("Delete");
    EXPECT_TRUE(waitUntil([] { return dictionary(lyricsFile).size() == 4999; }));
    EXPECT_FALSE(dictionary(lyricsFile).contains("Song 14999_@_Artist"));
}

TEST_F(StoredSongsTest, ListsAndDeletesArtworks) {
    files().createDirectories(artworkDirectory);
    const auto picture = files().read("/Library/PreferenceBundles/VelaSettings.bundle/icon.png");
    ASSERT_TRUE(picture);
    for (const char* name : {"/Alpha_@_A.png", "/Beta_@_B.png"})
        ASSERT_TRUE(files().writeAtomically(artworkDirectory + std::string(name), *picture));
    start();
    openPage({"Configuration", "Manage artworks"});
    const auto rows = window().all([](const Accessible& object) {
        return object.role() == "list item" && object.name().find("_@_") != std::string::npos;
    });
    ASSERT_EQ(rows.size(), 2u);
    focus(rows.front());
    desktop().key("Delete");
    EXPECT_TRUE(waitUntil([] { return files().contentsOfDirectory(artworkDirectory)->size() == 1; }));
}

} // namespace
} // namespace settings
