// Real keys, on a keyboard of the compositor's.
#include "tests/session/SessionTest.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>

#include <fstream>
#include <thread>

#include <linux/input-event-codes.h>

namespace tests {

using testing::ElementsAre;

class SessionKeys : public SessionTest {
protected:
    void startKeys() {
        startCompositor();
        startHost({"--no-supervisor", "--no-plugins"}, HostLog::Protocol);
        client().addKeyboard("de");
    }
    void showPanel(const std::string& side) {
        ASSERT_TRUE(request("Show", side));
        ASSERT_TRUE(waitForRest(side));
        ASSERT_TRUE(eventually([this] { return hostHasKeyboard(); }));
    }
    /// Opens an empty note, which is being written then.
    void openNote() {
        bringNotesOnly();
        startKeys();
        showPanel("left");
        tap(140, 300);
        ASSERT_TRUE(eventually([this] { return isOpen(); }));
        tap(224, 98);
        ASSERT_TRUE(waitForEditing(true));
    }
    /// Strikes a key while others are held.
    void strikeWith(const std::vector<unsigned>& held, unsigned key) {
        for (const unsigned each : held)
            client().pressKey(each);
        strike(key);
        for (const unsigned each : held)
            client().releaseKey(each);
    }
    std::string note() {
        const auto texts = PhoneRun::views(window("leftController"), "UITextView");
        return texts.empty() ? "(no note)" : texts.front()["text"].get<std::string>();
    }
    bool waitForNote(const std::string& text) {
        return eventually([&] { return note() == text; });
    }
    bool waitForEditing(bool editing) {
        return eventually([&] { return isEditing() == editing; });
    }

private:
    void bringNotesOnly() {
        const std::string script = root() + ".phone";
        std::ofstream(script) << "install \"" VELA_BINARY_DIR
                                 "/device/Library/Application Support/Vela/Plugins/Notes.bundle\"\n";
        const auto child =
            support::ChildProcess::run({VELA_BINARY_DIR "/bin/vela-phone", "--headless", "--no-plugins",
                                        "--script", script, "--out", root() + "-out", "--root", root()});
        ASSERT_EQ(child.exitCode, 0) << child.errors;
    }
    bool hostHasKeyboard() const {
        const std::string said = log();
        const std::string keyboard = "wl_keyboard@";
        for (auto place = said.rfind(keyboard); place != std::string::npos && place > 0;
             place = said.rfind(keyboard, place - 1)) {
            const std::string event = said.substr(place, said.find('(', place) - place);
            if (event.ends_with(".enter") || event.ends_with(".leave"))
                return event.ends_with(".enter");
        }
        return false;
    }
    bool isOpen() {
        const auto tiles = PhoneRun::views(window("leftController"), "velaApplicationView");
        return !tiles.empty() && tiles.front()["properties"]["isOpen"] == true &&
               tiles.front()["properties"]["isAnimating"] == false;
    }
    bool isEditing() {
        for (const auto& button : PhoneRun::views(window("leftController"), "UIButton"))
            if (button["text"] == "Done")
                return true;
        return false;
    }
};

TEST_F(SessionKeys, EscapePutsEachPanelAway) {
    startKeys();
    for (const char* side : {"right", "left"}) {
        showPanel(side);
        strike(KEY_ESC);
        EXPECT_TRUE(waitForRest("")) << side;
    }
}

TEST_F(SessionKeys, EscapeEndsTypingBeforeItPutsThePanelAway) {
    openNote();
    strike(KEY_A);
    EXPECT_TRUE(waitForNote("a"));
    strike(KEY_ESC);
    EXPECT_TRUE(waitForEditing(false));
    EXPECT_EQ(shown(), "left");
    strike(KEY_B); // for nobody
    strike(KEY_ESC);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_EQ(note(), "a");
}

TEST_F(SessionKeys, TextIsTypedIntoAPlugIn) {
    openNote();
    strikeWith({KEY_LEFTSHIFT}, KEY_H);
    strike(KEY_I);
    EXPECT_TRUE(waitForNote("Hi")) << note();
    strike(KEY_APOSTROPHE); // of a German keyboard
    strikeWith({KEY_RIGHTALT}, KEY_E);
    EXPECT_TRUE(waitForNote("Hiä€")) << note();
    strike(KEY_BACKSPACE);
    strike(KEY_BACKSPACE);
    EXPECT_TRUE(waitForNote("Hi")) << note();
    strike(KEY_ENTER);
    strike(KEY_Z); // changes places with Y
    EXPECT_TRUE(waitForNote("Hi\ny")) << note();
}

TEST_F(SessionKeys, CommandsAreNotText) {
    openNote();
    for (const unsigned modifier : {KEY_LEFTCTRL, KEY_LEFTALT, KEY_LEFTMETA})
        strikeWith({modifier}, KEY_A);
    strike(KEY_B);
    EXPECT_TRUE(waitForNote("b")) << note();
}

TEST_F(SessionKeys, AHeldKeyRepeatsUntilItIsReleased) {
    openNote();
    client().pressKey(KEY_A);
    EXPECT_TRUE(eventually([&] { return note().size() >= 4; })) << note();
    client().releaseKey(KEY_A);
    // Whatever it typed until then stands before the next key's letter, and nothing after.
    strike(KEY_B);
    ASSERT_TRUE(eventually([&] { return note().ends_with('b'); }));
    const std::string typed = note();
    std::this_thread::sleep_for(std::chrono::milliseconds(800)); // longer than until a key repeats
    EXPECT_EQ(note(), typed);
}

TEST_F(SessionKeys, KeysReachTheApplicationUnlessAPanelIsOpen) {
    startKeys();
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(eventually([&] { return client().hasKeyboard(); }));
    strike(KEY_A);
    showPanel("right");
    EXPECT_TRUE(eventually([&] { return !client().hasKeyboard(); }));
    strike(KEY_B);
    strike(KEY_ESC);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_TRUE(eventually([&] { return client().hasKeyboard(); }));
    strike(KEY_C);
    EXPECT_TRUE(eventually([&] { return client().keys().size() >= 2; }));
    EXPECT_THAT(client().keys(), ElementsAre(KEY_A, KEY_C));
}

} // namespace tests
