// The panels over a real compositor's windows.
#include "tests/session/SessionTest.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>

namespace tests {

using testing::ElementsAre;
using testing::IsEmpty;

using SessionPanels = SessionTest;

TEST_F(SessionPanels, TouchesBesideTheStripsReachTheApplication) {
    start();
    client().openWindow("org.example.Editor");
    tap(15, 300);
    tap(180, 300);
    tap(359, 300);
    EXPECT_THAT(client().presses(), ElementsAre("15,300", "180,300", "359,300"));
}

TEST_F(SessionPanels, TouchesOnTheStripsDoNotReachTheApplication) {
    start();
    client().openWindow("org.example.Editor");
    tap(0, 300);
    tap(14, 300);
    tap(361, 300);
    tap(374, 300);
    EXPECT_THAT(client().presses(), IsEmpty());
}

TEST_F(SessionPanels, AStripIsAsHighAsItsSettingSays) {
    start();
    setPreference("Grabber height", "string", "half_bottom");
    ASSERT_TRUE(eventually([&] { return window("leftWindowGrabber")["frame"][1] == 333.5; }));
    client().openWindow("org.example.Editor");
    tap(5, 200);
    tap(5, 500);
    EXPECT_THAT(client().presses(), ElementsAre("5,200"));
}

TEST_F(SessionPanels, ADragFromTheRightEdgeBringsTheRightPanel) {
    start();
    press(374, 300);
    dragTo(60, 300, 0.4);
    EXPECT_EQ(shown(), "right");
    release();
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionPanels, ADragFromTheLeftEdgeBringsTheLeftPanel) {
    start();
    press(1, 300);
    dragTo(310, 300, 0.4);
    release();
    EXPECT_TRUE(waitForRest("left"));
}

TEST_F(SessionPanels, ATapBesideThePanelPutsItAway) {
    start();
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    tap(20, 300);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_THAT(client().presses(), IsEmpty());
}

TEST_F(SessionPanels, ThePanelFollowsTheFinger) {
    start();
    press(374, 300);
    dragTo(230, 300, 0.3); // eight points a step
    // A pan counts from where it began, which is the first step beyond ten points.
    EXPECT_EQ(window("rightController")["frame"][0], 375 - (374 - 16 - 230));
    dragTo(250, 300, 0.1);
    EXPECT_EQ(window("rightController")["frame"][0], 375 - (374 - 16 - 250));
    release();
}

TEST_F(SessionPanels, FramesAndFlagsAreThePhonesForTheSameScript) {
    // Each step is a whole number of points: the protocol rounds to 256ths.
    const PhoneRun phone("wait 1\n"
                         "touch down 374 300\ntouch move 230 300 over 0.3\nstate half.json\n"
                         "touch move 50 300 over 0.3\ntouch up\nwait 1\nstate right.json\n"
                         "tap 20 300\nwait 1\n"
                         "touch down 1 300\ntouch move 313 300 over 0.4\ntouch up\nwait 1\nstate left.json\n"
                         "tap 370 300\nwait 1\nstate end.json\n");
    start();
    press(374, 300);
    dragTo(230, 300, 0.3);
    EXPECT_EQ(productWindows(state()), productWindows(phone.state("half.json")));
    dragTo(50, 300, 0.3);
    release();
    ASSERT_TRUE(waitForRest("right"));
    EXPECT_EQ(productWindows(state()), productWindows(phone.state("right.json")));
    tap(20, 300);
    ASSERT_TRUE(waitForRest(""));
    press(1, 300);
    dragTo(313, 300, 0.4);
    release();
    ASSERT_TRUE(waitForRest("left"));
    EXPECT_EQ(productWindows(state()), productWindows(phone.state("left.json")));
    tap(370, 300);
    ASSERT_TRUE(waitForRest(""));
    EXPECT_EQ(productWindows(state()), productWindows(phone.state("end.json")));
}

TEST_F(SessionPanels, APhonesCompositorShowsThemAsWell) {
    start({}, HeadlessCompositor::Kind::Phoc);
    const std::string background = pixel(20, 300);
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    EXPECT_TRUE(eventually([&] { return pixel(700, 300) != background; }));
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    EXPECT_TRUE(eventually([&] { return pixel(700, 300) == background && pixel(20, 300) == background; }));
}

TEST_F(SessionPanels, TheScreenBesideAPanelIsDimmed) {
    start();
    ASSERT_EQ(pixel(20, 300), "#336699");
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    // Six tenths black over the background.
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#14293D"; })) << pixel(20, 300);
}

TEST_F(SessionPanels, NothingIsLeftOnTheScreenWhenAPanelHasGone) {
    start();
    ASSERT_TRUE(request("Show", "left"));
    ASSERT_TRUE(waitForRest("left"));
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#336699" && pixel(700, 300) == "#336699"; }));
    client().openWindow("org.example.Editor");
    tap(180, 300);
    EXPECT_THAT(client().presses(), ElementsAre("180,300"));
}

} // namespace tests
