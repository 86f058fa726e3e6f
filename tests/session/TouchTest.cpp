// Real fingers on a touch screen.
#include "tests/session/SessionTest.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>

namespace tests {

using testing::ElementsAre;
using testing::IsEmpty;

class SessionTouch : public SessionTest {
protected:
    static constexpr double frame = 1.0 / 60; // seconds

    void startTouch(HeadlessCompositor::Kind kind = HeadlessCompositor::Kind::Sway) {
        start({.hasTouch = true}, kind, HostLog::Protocol);
    }
    /// Puts a finger on a strip and moves it a little, until the whole screen listens to it: hands are slower
    /// than that.
    void beginDrag(int finger, double x, double y, double toX) {
        putFinger(finger, x, y);
        moveFinger(finger, toX, y, frame);
        ASSERT_TRUE(eventually([this] { return coverIsShown(); }));
        // The host has sent it when it answers, and the compositor has read it when it has shown a picture.
        state();
        compositor().takePicture(root() + ".png");
    }
    bool waitForFrame(const char* cls, double x) {
        return eventually([&] { return window(cls)["frame"][0] == x; });
    }
    bool waitForWindows(const nlohmann::json& windows) {
        return eventually([&] { return productWindows(state()) == windows; });
    }

private:
    bool coverIsShown() const {
        const std::string said = log();
        const auto made = said.rfind("\"vela-touch\"");
        if (made == std::string::npos)
            return false;
        const auto surface = said.rfind("wl_surface@", made);
        const std::string name = said.substr(surface, said.find(',', surface) - surface);
        const auto attached = said.find(name + ".attach(", made);
        return attached != std::string::npos && said.find(name + ".commit()", attached) != std::string::npos;
    }
};

TEST_F(SessionTouch, TouchesBesideTheStripsReachTheApplication) {
    startTouch();
    client().openWindow("org.example.Editor");
    touchTap(15, 300);
    touchTap(180, 300);
    touchTap(359, 300);
    EXPECT_TRUE(eventually([&] { return client().touches().size() == 3; }));
    EXPECT_THAT(client().touches(), ElementsAre("15,300", "180,300", "359,300"));
}

TEST_F(SessionTouch, TouchesOnTheStripsDoNotReachTheApplication) {
    startTouch();
    client().openWindow("org.example.Editor");
    for (const int x : {0, 14, 361, 374})
        touchTap(x, 300);
    touchTap(180, 300);
    // The last one comes after whatever the others did.
    EXPECT_TRUE(eventually([&] { return !client().touches().empty(); }));
    EXPECT_THAT(client().touches(), ElementsAre("180,300"));
}

TEST_F(SessionTouch, AFingerThatRestsAtTheEdgeLeavesTheScreenToOthers) {
    startTouch();
    client().openWindow("org.example.Editor");
    putFinger(0, 374, 300);
    moveFinger(0, 372, 301, frame);
    putFinger(1, 180, 300);
    EXPECT_TRUE(eventually([&] { return !client().touches().empty(); }));
    EXPECT_THAT(client().touches(), ElementsAre("180,300"));
}

TEST_F(SessionTouch, ADragFromTheRightEdgeBringsTheRightPanel) {
    startTouch();
    beginDrag(0, 374, 300, 369);
    moveFinger(0, 60, 300, 0.4);
    EXPECT_TRUE(waitForShown("right"));
    liftFinger(0);
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionTouch, ADragFromTheLeftEdgeBringsTheLeftPanel) {
    startTouch();
    beginDrag(0, 1, 300, 6);
    moveFinger(0, 310, 300, 0.4);
    liftFinger(0);
    EXPECT_TRUE(waitForRest("left"));
}

TEST_F(SessionTouch, ThePanelFollowsTheFingerStepByStep) {
    startTouch();
    client().openWindow("org.example.Editor");
    beginDrag(0, 374, 300, 369);
    moveFinger(0, 358, 300, frame); // where the pan begins: beyond ten points
    for (const int x : {350, 300, 229, 250, 365}) {
        moveFinger(0, x, 300, frame);
        EXPECT_TRUE(waitForFrame("rightController", 375 - (358 - x))) << x << window("rightController");
    }
    liftFinger(0);
    EXPECT_TRUE(waitForRest(""));
}

/// The pan begins on the strip, which is a surface of its own, and goes on beyond it.
TEST_F(SessionTouch, ThePanelFollowsAFingerThatBeginsSlowly) {
    startTouch();
    beginDrag(0, 374, 300, 369);
    for (const int x : {366, 363})
        moveFinger(0, x, 300, frame);
    EXPECT_TRUE(waitForFrame("rightController", 375)); // it stands at the edge
    for (const int x : {355, 340, 200, 361, 330}) {
        moveFinger(0, x, 300, frame);
        EXPECT_TRUE(waitForFrame("rightController", 375 - (363 - x))) << x << window("rightController");
    }
    liftFinger(0);
}

TEST_F(SessionTouch, ATapBesideThePanelPutsItAway) {
    startTouch();
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    touchTap(20, 300);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_THAT(client().touches(), IsEmpty());
}

TEST_F(SessionTouch, AnOpenPanelIsDraggedAway) {
    startTouch();
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    beginDrag(0, 66, 300, 72); // on the panel's own strip
    moveFinger(0, 370, 300, 0.4);
    liftFinger(0);
    EXPECT_TRUE(waitForRest(""));
}

TEST_F(SessionTouch, TwoFingersDoWhatTheyDoOnThePhone) {
    const PhoneRun phone("wait 1\n"
                         "touch down 374 300\ntouch move 369 300\n"
                         "touch down 1 300 finger 2\n"
                         "touch move 249 300 over 0.25\nstate first.json\n"
                         "touch move 121 300 over 0.25 finger 2\nstate second.json\n"
                         "touch move 241 300\nwait 1\nstate both.json\n"
                         "touch up finger 2\nwait 1\nstate one.json\n"
                         "touch up\nwait 1\nstate none.json\n");
    startTouch();
    beginDrag(0, 374, 300, 369);
    putFinger(1, 1, 300);
    moveFinger(0, 249, 300, 0.25);
    EXPECT_TRUE(waitForWindows(productWindows(phone.state("first.json"))));
    moveFinger(1, 121, 300, 0.25);
    EXPECT_TRUE(waitForWindows(productWindows(phone.state("second.json"))));
    moveFinger(0, 241, 300, frame);
    EXPECT_TRUE(waitForWindows(productWindows(phone.state("both.json"))));
    liftFinger(1);
    EXPECT_TRUE(waitForWindows(productWindows(phone.state("one.json"))));
    liftFinger(0);
    EXPECT_TRUE(waitForWindows(productWindows(phone.state("none.json"))));
}

TEST_F(SessionTouch, ATouchScreenThatGoesLetsGoOfThePanel) {
    startTouch();
    beginDrag(0, 374, 300, 369);
    moveFinger(0, 330, 300, 0.4);
    ASSERT_TRUE(waitForShown("right"));
    compositor().parent().perform([](ParentSeat& seat) { seat.plugOut(); });
    EXPECT_TRUE(waitForRest(""));
}

TEST_F(SessionTouch, APhonesCompositorHasFingersAsWell) {
    startTouch(HeadlessCompositor::Kind::Phoc);
    beginDrag(0, 374, 300, 369);
    moveFinger(0, 358, 300, frame);
    for (const int x : {340, 229}) {
        moveFinger(0, x, 300, frame);
        EXPECT_TRUE(waitForFrame("rightController", 375 - (358 - x))) << x << window("rightController");
    }
    moveFinger(0, 60, 300, 0.4);
    liftFinger(0);
    EXPECT_TRUE(waitForRest("right"));
    touchTap(20, 300);
    EXPECT_TRUE(waitForRest(""));
}

} // namespace tests
