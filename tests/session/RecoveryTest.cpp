// A compositor or a bus that dies at a bad moment, and comes back.
#include "tests/session/MockedServices.h"

namespace tests {

class SessionRecovery : public MockedServices {
protected:
    void killCompositor() {
        endClient();
        compositor().kill();
    }
    bool waitForDisplay(bool on) {
        return eventually([&] { return state()["display"] == on; });
    }
    void returnWithCompositor() {
        ASSERT_TRUE(compositor().start());
        client();
        ASSERT_TRUE(waitForDisplay(true));
    }
    /// A finger's way in, again and again: the strip that it touches may still be on its way to the screen.
    bool dragIn() {
        return eventually([this] {
            press(374, 300);
            dragTo(230, 300, 0.3);
            const bool touched = waitForShown("right", std::chrono::seconds(1));
            dragTo(60, 300, 0.3);
            release();
            return touched;
        });
    }
    void expectUsable() {
        ASSERT_TRUE(dragIn());
        ASSERT_TRUE(waitForRest("right"));
        EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#14293D"; })) << pixel(20, 300);
        tap(20, 300);
        ASSERT_TRUE(waitForRest(""));
        EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#336699" && pixel(700, 300) == "#336699"; }));
    }
};

TEST_F(SessionRecovery, ACompositorDiesBeneathAnOpenPanel) {
    start();
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    killCompositor();
    ASSERT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    EXPECT_EQ(state()["frontmost"], "");
    EXPECT_FALSE(request("Show", "left"));
    returnWithCompositor();
    expectUsable();
}

TEST_F(SessionRecovery, ACompositorDiesInTheMiddleOfAPan) {
    start();
    press(374, 300);
    dragTo(230, 300, 0.3);
    ASSERT_EQ(shown(), "right");
    killCompositor();
    ASSERT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    returnWithCompositor();
    expectUsable();
}

TEST_F(SessionRecovery, ACompositorDiesAgainAndAgain) {
    start();
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(request("Show", i % 2 == 0 ? "left" : "right"));
        killCompositor();
        ASSERT_TRUE(waitForDisplay(false));
        returnWithCompositor();
    }
    expectUsable();
}

TEST_F(SessionRecovery, ABusDiesBeneathAnOpenPanel) {
    startLogin();
    start();
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    bus().stop();
    endMocks();
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#14293D"; })) << pixel(20, 300);
    tap(20, 300);
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#336699" && pixel(700, 300) == "#336699"; }));
    ASSERT_TRUE(bus().start());
    ASSERT_TRUE(waitForRest(""));
    expectUsable();
}

TEST_F(SessionRecovery, ABusThatReturnsBringsItsServicesBack) {
    startLogin();
    start();
    bus().stop();
    endMocks();
    ASSERT_TRUE(bus().start());
    startLogin();
    EXPECT_TRUE(eventually([&] { return state()["locked"] == true; }, [&] { setLockedHint(true); }));
    setLockedHint(false);
    EXPECT_TRUE(waitForLocked(false));
    expectUsable();
}

TEST_F(SessionRecovery, CompositorAndBusDieAtOnce) {
    start();
    ASSERT_TRUE(request("Show", "left"));
    bus().stop();
    killCompositor();
    ASSERT_TRUE(bus().start());
    ASSERT_TRUE(eventually([&] { return !state().is_null(); }));
    returnWithCompositor();
    expectUsable();
}

} // namespace tests
