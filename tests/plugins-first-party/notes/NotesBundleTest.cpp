#include "tests/plugins-first-party/FirstPartyTest.h"

namespace plugins {
namespace {

class NotesBundleTest : public FirstPartyTest {
protected:
    void write(const std::string& text) {
        tap("New");
        type(text);
        tap("‹ Notes");
    }
    static PluginStorage storage() { return PluginStorage("org.lanternhub.vela.notes"); }
};

TEST_F(NotesBundleTest, AnOpenedNewNoteCanBeTypedInto) {
    open("Notes");
    EXPECT_TRUE(shows("0 notes"));
    tap("New");
    ASSERT_NE(toolkit::TextInput::current(), nullptr);
    EXPECT_TRUE(shows("New note"));
    type("Shopping\nmilk");
    EXPECT_TRUE(shows("Saved"));
    tap("Done");
    EXPECT_EQ(toolkit::TextInput::current(), nullptr);
    tap("‹ Notes");
    EXPECT_TRUE(shows("1 note"));
    EXPECT_TRUE(shows("Shopping"));
}

TEST_F(NotesBundleTest, KeepsNotesOverARestart) {
    open("Notes");
    write("first");
    write("second");
    open("Notes");
    EXPECT_TRUE(shows("2 notes"));
    tap("first");
    tapAt({140, 300});
    type(" and more");
    open("Notes");
    tap("first and more");
    EXPECT_TRUE(shows("first and more"));
}

TEST_F(NotesBundleTest, KeepsWhatIsTypedAtOnce) {
    open("Notes");
    tap("New");
    std::string typed;
    for (int i = 0; i < 30; ++i) {
        const std::string word = std::to_string(i) + " ";
        type(word);
        typed += word;
        const auto contents = storage().read("note-1.txt");
        ASSERT_TRUE(contents);
        EXPECT_NE(contents->find("\n\n" + typed), std::string::npos) << i;
    }
}

TEST_F(NotesBundleTest, AsksBeforeItDeletes) {
    open("Notes");
    write("precious");
    tap("precious");
    tap("Delete");
    EXPECT_TRUE(shows("Delete this note?"));
    tap("Keep");
    EXPECT_EQ(storage().names().size(), 1u);
    tap("Delete");
    tap("Delete"); // the question's own
    EXPECT_TRUE(shows("0 notes"));
    EXPECT_TRUE(storage().names().empty());
}

TEST_F(NotesBundleTest, RestsWhileItIsClosedOrThePanelAway) {
    open("Notes");
    tap("New");
    type(std::string(100'000, 'x')); // so much is not saved at once
    EXPECT_EQ(TimerState::running(), 1);
    type("y");
    expectRestAfter("velaDismissed");
    EXPECT_EQ(toolkit::TextInput::current(), nullptr);
    EXPECT_NE(storage().read("note-1.txt")->find("xy"), std::string::npos);
    send("velaInvoked");
    expectRestAfter("appDidEnterBackground");
}

TEST_F(NotesBundleTest, SaysWhenANoteCannotBeSavedAndSavesItLater) {
    open("Notes");
    tap("New");
    const auto directory = *files().realPath(PluginStorage::directoryFor("org.lanternhub.vela.notes"));
    std::filesystem::create_directories(directory / "note-1.txt"); // a directory in the file's place
    type("text");
    EXPECT_TRUE(shows("Not saved!"));
    tap("‹ Notes");
    EXPECT_TRUE(shows("text")); // it is not left
    std::filesystem::remove(directory / "note-1.txt");
    loop.advance(4);
    tap("‹ Notes");
    EXPECT_TRUE(shows("1 note"));
}

TEST_F(NotesBundleTest, BearsDamagedFiles) {
    open("Notes");
    write("sound");
    ASSERT_TRUE(storage().write("note-7.txt", std::string("\xff\0garbage", 9)));
    open("Notes");
    EXPECT_TRUE(shows("1 note, 1 damaged"));
    EXPECT_EQ(storage().read("damaged-1-note-7.txt"), std::string("\xff\0garbage", 9));
}

} // namespace
} // namespace plugins
