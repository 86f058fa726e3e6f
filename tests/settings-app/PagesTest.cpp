#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>

namespace settings {
namespace {

using PagesTest = SettingsProgramTest;

TEST_F(PagesTest, WelcomesOnTheFirstVisitAlone) {
    setPreference("tutorial", false);
    start();
    EXPECT_TRUE(find("push button", "Tutorial"));
    EXPECT_FALSE(has("check box", "Enable"));
    EXPECT_TRUE(waitForPreference("tutorial", true));
    desktop().key("Escape");
    EXPECT_TRUE(find("check box", "Enable"));
    start();
    EXPECT_TRUE(find("check box", "Enable"));
    EXPECT_FALSE(has("push button", "Tutorial"));
}

TEST_F(PagesTest, StoresASwitch) {
    setPreference("something else", "stays");
    start();
    const Accessible enable = find("check box", "Enable");
    EXPECT_TRUE(enable.has(ATSPI_STATE_CHECKED));
    EXPECT_TRUE(enable.activate());
    EXPECT_TRUE(waitForPreference("Enable", false));
    EXPECT_TRUE(waitUntil([&] { return !enable.has(ATSPI_STATE_CHECKED); }));
    EXPECT_TRUE(enable.activate());
    EXPECT_TRUE(waitForPreference("Enable", true));
    EXPECT_EQ(preference("something else"), PropertyList("stays"));
}

TEST_F(PagesTest, StoresASlidersLastValue) {
    setPreference("left_size_portrait", 0.6);
    start();
    openPage({"Configuration"});
    const Accessible slider = find("slider", "left_size_portrait");
    EXPECT_NEAR(slider.value().value_or(0), 0.6, 1e-6);
    for (int step = 0; step <= 60; ++step)
        ASSERT_TRUE(slider.setValue(0.6 + 0.005 * step));
    EXPECT_TRUE(
        waitUntil([] { return std::abs(preference("left_size_portrait").doubleValue() - 0.9) < 1e-6; }));
    EXPECT_NEAR(slider.value().value_or(0), 0.9, 1e-6);
}

TEST_F(PagesTest, StoresASlidersLastValueWhenItEndsAtOnce) {
    start();
    openPage({"Configuration"});
    const Accessible slider = find("slider", "right_size_landscape");
    slider.setValue(0.4);
    slider.setValue(0.45);
    slider.setValue(0.7);
    EXPECT_EQ(stop(), 0);
    EXPECT_NEAR(preference("right_size_landscape").doubleValue(), 0.7, 1e-6);
}

TEST_F(PagesTest, KeepsASliderWithinItsRange) {
    start();
    openPage({"Configuration"});
    const Accessible slider = find("slider", "left_size_landscape");
    slider.setValue(5);
    EXPECT_TRUE(
        waitUntil([] { return std::abs(preference("left_size_landscape").doubleValue() - 0.95) < 1e-6; }));
    slider.setValue(0);
    EXPECT_TRUE(
        waitUntil([] { return std::abs(preference("left_size_landscape").doubleValue() - 0.3) < 1e-6; }));
}

TEST_F(PagesTest, StoresAChoiceAndShowsItWithACheckMark) {
    start();
    openPage({"Configuration", "Grabber height, Full height"});
    EXPECT_TRUE(waitUntil([&] { return find("list item", "Full height").has(ATSPI_STATE_SELECTED); }));
    press("list item", "Half height Top");
    EXPECT_TRUE(waitForPreference("Grabber height", "half_top"));
    EXPECT_TRUE(waitUntil([&] { return find("list item", "Half height Top").has(ATSPI_STATE_SELECTED); }));
    EXPECT_FALSE(find("list item", "Full height").has(ATSPI_STATE_SELECTED));
    desktop().key("alt+Left");
    EXPECT_TRUE(find("list item", "Grabber height, Half height Top"));
}

TEST_F(PagesTest, GoesBackByButtonKeyAndEscapeToTheRowThatLedOn) {
    start();
    const auto isBack = [&] { return find("list item", "Guide").has(ATSPI_STATE_FOCUSED); };
    openPage({"Guide"});
    press("push button", "Back");
    EXPECT_TRUE(waitUntil(isBack));
    openPage({"Guide"});
    desktop().key("alt+Left");
    EXPECT_TRUE(waitUntil(isBack));
    openPage({"Guide"});
    desktop().key("Escape");
    EXPECT_TRUE(waitUntil(isBack));
    // The first page stays.
    desktop().key("Escape");
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(find("list item", "Guide"));
}

TEST_F(PagesTest, GoesBackFromAPageThatIsStillComing) {
    start();
    const auto isBack = [&] {
        return has("list item", "Guide") && find("list item", "Guide").has(ATSPI_STATE_FOCUSED);
    };
    focus(find("list item", "Guide"));
    for (int round = 0; round < 3; ++round) {
        desktop().key("Return");
        desktop().key("Escape");
        // Longer than a page takes to come and go.
        EXPECT_FALSE(waitUntil([] { return false; }, 1));
        EXPECT_TRUE(isBack()) << round;
    }
}

TEST_F(PagesTest, NamesAndReachesEveryControl) {
    start();
    openPage({"Configuration"});
    const auto isControl = [](const Accessible& object) {
        const std::string role = object.role();
        return role == "push button" || role == "check box" || role == "slider" ||
               (role == "list item" && object.has(ATSPI_STATE_FOCUSABLE));
    };
    std::set<std::string> waited;
    for (const Accessible& control : window().all(isControl)) {
        EXPECT_NE(control.name(), "") << "a " << control.role();
        // The window's own buttons are the desktop's, which has keys for them.
        const bool isWindowButton =
            std::set<std::string>{"Minimize", "Maximize", "Close"}.contains(control.name());
        if (control.isShown() && !isWindowButton)
            waited.insert(control.role() + " " + control.name());
    }
    EXPECT_GE(waited.size(), 17u);
    // Once around by Tab, and by Down within a box of rows.
    for (int stop = 0; stop < 80 && !waited.empty(); ++stop) {
        desktop().key("Tab");
        for (const Accessible& control : window().all(isControl))
            if (control.has(ATSPI_STATE_FOCUSED))
                waited.erase(control.role() + " " + control.name());
    }
    EXPECT_THAT(waited, testing::IsEmpty());
}

TEST_F(PagesTest, ListsApplicationsThatHaveAnIcon) {
    start();
    openPage({"Configuration", "Disable for apps"});
    const Accessible notes = find("check box", "com.apple.mobilenotes");
    EXPECT_FALSE(notes.has(ATSPI_STATE_CHECKED));
    EXPECT_FALSE(has("check box", "com.apple.WebViewService"));
    EXPECT_TRUE(notes.activate());
    EXPECT_TRUE(waitForPreference("com.apple.mobilenotes", true));
    EXPECT_TRUE(notes.activate());
    EXPECT_TRUE(waitForPreference("com.apple.mobilenotes", false));
    desktop().key("Escape");
    openPage({"Disable for apps"});
    find("check box", "com.apple.mobilenotes");
    const auto rows = window().all([](const Accessible& object) {
        return object.role() == "check box" && object.name() == "com.apple.mobilenotes";
    });
    EXPECT_EQ(rows.size(), 1u);
}

TEST_F(PagesTest, WritesAMessageInASheet) {
    start();
    press("push button", "Tweet");
    EXPECT_EQ(find("text", "Message").text(), "I'm loving #Vela3 by @tarnfield5");
    press("push button", "Cancel");
    EXPECT_TRUE(find("check box", "Enable"));
    EXPECT_TRUE(waitUntil([&] { return !has("text", "Message"); }));
}

TEST_F(PagesTest, ShowsTheAbsentStateWhileThePreferencesAreGone) {
    start();
    const Accessible enable = find("check box", "Enable");
    const auto isOn = [&] { return enable.has(ATSPI_STATE_CHECKED); };
    ASSERT_TRUE(isOn());
    const auto preferences = dictionary(preferencesFile);
    std::filesystem::remove(root() + preferencesFile);
    EXPECT_TRUE(waitUntil([&] { return !isOn(); }));
    ASSERT_TRUE(files().writeDictionaryAtomically(preferencesFile, preferences));
    EXPECT_TRUE(waitUntil(isOn));
    std::ofstream(root() + preferencesFile) << "<plist><dict><key>Enable</key><tru";
    EXPECT_TRUE(waitUntil([&] { return !isOn(); }));
    std::ofstream(root() + preferencesFile, std::ios::binary) << std::string(100'000, '\xFF');
    // What is stored now makes the file whole again.
    EXPECT_TRUE(enable.activate());
    EXPECT_TRUE(waitForPreference("Enable", true));
    EXPECT_TRUE(waitUntil(isOn));
    EXPECT_TRUE(isRunning());
}

TEST_F(PagesTest, FollowsWhatOthersStore) {
    start();
    openPage({"Configuration"});
    const Accessible slider = find("slider", "left_size_portrait");
    EXPECT_EQ(shell({"--set", "left_size_portrait", "0.65"}).exitCode, 0);
    EXPECT_TRUE(waitUntil([&] { return std::abs(slider.value().value_or(0) - 0.65) < 1e-6; }));
    EXPECT_EQ(shell({"--set", "Blur", "light"}).exitCode, 0);
    EXPECT_TRUE(find("list item", "Blur, Light"));
}

} // namespace
} // namespace settings
