// What the session's services tell, and what happens when they are missing, go and come back.
#include "tests/session/MockedServices.h"

#include <gmock/gmock.h>

namespace tests {

using testing::ElementsAre;
using testing::IsEmpty;

using SessionServices = MockedServices;

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

TEST_F(SessionServices, APressThatTheLockEndedDoesNotCostTheNextOne) {
    startLogin();
    start();
    press(374, 300);
    setLockedHint(true);
    ASSERT_TRUE(waitForLocked(true));
    release();
    setLockedHint(false);
    ASSERT_TRUE(waitForLocked(false));
    // Until the strips are there again.
    ASSERT_TRUE(eventually([&] { return request("Show", "right"); }));
    ASSERT_TRUE(waitForRest("right"));
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    press(374, 300);
    dragTo(60, 300, 0.4);
    release();
    EXPECT_TRUE(waitForRest("right"));
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

TEST_F(SessionServices, AHostThatBelongsToNoSessionHeedsTheOneThatIsSeen) {
    startLogin();
    setLoginSession("");
    start();
    EXPECT_TRUE(
        eventually([&] { return state()["locked"] == true; }, [&] { setLockedHint(true, seenSession); }));
    setLockedHint(false, seenSession);
    EXPECT_TRUE(waitForLocked(false));
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
