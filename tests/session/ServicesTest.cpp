// What the session's services tell, and what happens when they are missing, go and come back.
#include "tests/session/SessionTest.h"

#include <gmock/gmock.h>

namespace tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* mock = "org.freedesktop.DBus.Mock";
constexpr const char* login = "org.freedesktop.login1";
constexpr const char* loginSession = "/org/freedesktop/login1/session/c1";
constexpr const char* keyboard = "sm.puri.OSK0";
constexpr const char* keyboardPath = "/sm/puri/OSK0";

} // namespace

class SessionServices : public SessionTest {
protected:
    void startLogin() {
        startMock({"--template", "logind"}, login);
        take(bus().call(login, "/org/freedesktop/login1", mock, "AddSession",
                        g_variant_new("(ssusb)", "c1", "seat0", 1000u, "someone", TRUE)));
    }
    void setLockedHint(bool locked) {
        take(bus().call(login, loginSession, "org.freedesktop.login1.Session", "SetLockedHint",
                        g_variant_new("(b)", locked)));
    }
    void startKeyboard() {
        startMock({keyboard, keyboardPath, keyboard}, keyboard);
        take(bus().call(keyboard, keyboardPath, mock, "AddProperty",
                        g_variant_new("(ssv)", keyboard, "Visible", g_variant_new_boolean(FALSE))));
    }
    void setKeyboardVisible(bool visible) {
        GVariantBuilder properties;
        g_variant_builder_init(&properties, G_VARIANT_TYPE("a{sv}"));
        g_variant_builder_add(&properties, "{sv}", "Visible", g_variant_new_boolean(visible));
        take(bus().call(keyboard, keyboardPath, mock, "UpdateProperties",
                        g_variant_new("(sa{sv})", keyboard, &properties)));
    }
    bool waitForLocked(bool locked) {
        return eventually([&] { return state()["locked"] == locked; });
    }
};

TEST_F(SessionServices, NoPanelLiesOverALockedSession) {
    startLogin();
    start();
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    setLockedHint(true);
    ASSERT_TRUE(waitForLocked(true));
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#336699" && pixel(700, 300) == "#336699"; }));
    EXPECT_FALSE(request("Show", "right"));
    setLockedHint(false);
    ASSERT_TRUE(waitForLocked(false));
    EXPECT_TRUE(eventually([&] { return request("Show", "right"); }));
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionServices, TheGrabbersTakeNothingFromALockedSession) {
    startLogin();
    start();
    client().openWindow("org.example.Lock");
    setLockedHint(true);
    ASSERT_TRUE(waitForLocked(true));
    tap(5, 300);
    EXPECT_TRUE(eventually([&] { return client().presses() == std::vector<std::string>{"5,300"}; }));
}

TEST_F(SessionServices, TheLoginManagersSignalsLockAndUnlock) {
    startLogin();
    start();
    // A signal is gone once it is given, so it is given until the host, which looks its session up first,
    // hears it.
    const auto signal = [&](const char* name) {
        bus().call(login, loginSession, "org.freedesktop.login1.Session", name);
    };
    EXPECT_TRUE(eventually([&] { return state()["locked"] == true; }, [&] { signal("Lock"); }));
    EXPECT_TRUE(eventually([&] { return state()["locked"] == false; }, [&] { signal("Unlock"); }));
}

TEST_F(SessionServices, ALoginManagerThatStartsLaterIsHeard) {
    start();
    EXPECT_EQ(state()["locked"], false);
    startLogin();
    // The session is added to the mock after it has its name: the host asks when the name appears.
    setLockedHint(true);
    EXPECT_TRUE(waitForLocked(true));
}

TEST_F(SessionServices, WhatWasLockedStaysSoWhenTheLoginManagerGoes) {
    startLogin();
    start();
    setLockedHint(true);
    ASSERT_TRUE(waitForLocked(true));
    endMocks();
    ASSERT_TRUE(eventually([&] { return !bus().has(login); }));
    EXPECT_EQ(state()["locked"], true);
}

TEST_F(SessionServices, TheKeyboardKeepsTheGrabbersAway) {
    startKeyboard();
    start();
    EXPECT_EQ(state()["keyboard"][3], 0);
    setKeyboardVisible(true);
    ASSERT_TRUE(eventually([&] { return state()["keyboard"][3] > 0; }));
    EXPECT_TRUE(eventually([&] { return window("leftWindowGrabber")["userInteraction"] == false; }));
    setKeyboardVisible(false);
    EXPECT_TRUE(eventually([&] { return window("leftWindowGrabber")["userInteraction"] == true; }));
}

TEST_F(SessionServices, AKeyboardThatCrashesIsGone) {
    startKeyboard();
    start();
    setKeyboardVisible(true);
    ASSERT_TRUE(eventually([&] { return state()["keyboard"][3] > 0; }));
    endMocks();
    EXPECT_TRUE(eventually([&] { return state()["keyboard"][3] == 0; }));
}

TEST_F(SessionServices, TheApplicationInFrontIsTheActiveWindows) {
    start();
    EXPECT_EQ(state()["frontmost"], "");
    client().openWindow("org.example.Editor");
    EXPECT_TRUE(eventually([&] { return state()["frontmost"] == "org.example.Editor"; }));
    client().closeWindow();
    EXPECT_TRUE(eventually([&] { return state()["frontmost"] == ""; }));
}

TEST_F(SessionServices, TheApplicationInFrontStaysSoWhileAPanelHasTheKeyboard) {
    start();
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(eventually([&] { return state()["frontmost"] == "org.example.Editor"; }));
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    EXPECT_EQ(state()["frontmost"], "org.example.Editor");
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    EXPECT_EQ(state()["frontmost"], "org.example.Editor");
}

TEST_F(SessionServices, AnApplicationCanSwitchTheGrabbersOff) {
    start();
    setPreference("org.example.Game", "bool", "true");
    client().openWindow("org.example.Game");
    ASSERT_TRUE(eventually([&] { return window("rightWindowGrabber")["userInteraction"] == false; }));
    tap(370, 300);
    EXPECT_TRUE(eventually([&] { return client().presses() == std::vector<std::string>{"370,300"}; }));
}

TEST_F(SessionServices, GoesOnWithoutABusAndTakesItsNameWhenItReturns) {
    start();
    bus().stop();
    press(374, 300);
    dragTo(60, 300, 0.4);
    release();
    ASSERT_TRUE(bus().start());
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionServices, ReturnsWithTheCompositor) {
    start();
    endClient();
    compositor().stop();
    ASSERT_TRUE(compositor().start());
    EXPECT_TRUE(eventually([&] { return request("Show", "right") && pixel(20, 300) == "#14293D"; }));
}

TEST_F(SessionServices, FollowsTheOutputsTurnAndScale) {
    start();
    EXPECT_EQ(state()["screen"]["interface"], 1);
    ASSERT_TRUE(compositor().command("output HEADLESS-1 transform 90"));
    ASSERT_TRUE(eventually([&] { return state()["screen"]["width"] == 667; }));
    EXPECT_EQ(state()["screen"]["interface"], 3);
    EXPECT_TRUE(eventually([&] {
        return window("rightWindowGrabber")["frame"] == nlohmann::json({652, 0, 15, 375});
    }));
    ASSERT_TRUE(compositor().command("output HEADLESS-1 scale 1.25"));
    EXPECT_TRUE(eventually([&] { return state()["screen"]["scale"] == 1.25; })) << state()["screen"];
    ASSERT_TRUE(request("Show", "left"));
    EXPECT_TRUE(waitForRest("left"));
}

TEST_F(SessionServices, WaitsForTheOutputThatItIsToldToUse) {
    startCompositor();
    startHost({"--no-supervisor", "--output", "HEADLESS-2"});
    EXPECT_FALSE(request("Show", "right"));
    ASSERT_TRUE(compositor().command("output HEADLESS-2 mode 1000x600 position 2000 0"));
    ASSERT_TRUE(compositor().command("create_output"));
    EXPECT_TRUE(eventually([&] { return state()["screen"]["width"] == 1000; })) << state()["screen"];
    EXPECT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
}

} // namespace tests
