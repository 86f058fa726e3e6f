#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/ProcessInfo.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/Rotation.h"
#include "vela/startup/SpringBoardMessages.h"

#include <numbers>

using toolkit::AffineTransform;
using toolkit::Rect;

namespace {

/// A tablet is laid out by every call.
struct Rotation : tests::ProductTest {
    Rotation() {
        preferences(usualPreferences());
        launch();
        foundation::ProcessInfo::shared().deviceModel = "iPad Air";
    }
    vela::ModuleState& state = vela::moduleState();

    void rotate(std::int64_t orientation, bool isSpring) {
        vela::messages::velaWillRotate(*host->springBoard, orientation, isSpring);
    }
    /// Quarter turns of right, rightGrabber, left and leftGrabber.
    std::vector<int> turns() const {
        const toolkit::UIWindow* windows[] = {state.right.get(), state.rightGrabber.get(), state.left.get(),
                                              state.leftGrabber.get()};
        std::vector<int> result;
        for (const auto* window : windows) {
            int found = 99;
            for (int turn : {-1, 0, 1}) {
                const AffineTransform expected =
                    turn ? AffineTransform::rotation(turn * std::numbers::pi / 2) : AffineTransform();
                if (window->transform() == expected)
                    found = turn;
            }
            result.push_back(found);
        }
        return result;
    }
    static void expectNear(const Rect& actual, const Rect& expected) {
        EXPECT_NEAR(actual.x, expected.x, 1e-9);
        EXPECT_NEAR(actual.y, expected.y, 1e-9);
        EXPECT_NEAR(actual.width, expected.width, 1e-9);
        EXPECT_NEAR(actual.height, expected.height, 1e-9);
    }
};

TEST_F(Rotation, EachOrientationHasItsOwnTurns) {
    using Row = std::vector<int>;
    rotate(1, false);
    EXPECT_EQ(turns(), (Row{0, 0, 0, 0}));
    rotate(3, false);
    EXPECT_EQ(turns(), (Row{0, -1, 0, 1}));
    rotate(4, false);
    EXPECT_EQ(turns(), (Row{0, 1, 0, 1}));
    rotate(3, true);
    EXPECT_EQ(turns(), (Row{0, -1, 0, 1}));
    rotate(4, true);
    EXPECT_EQ(turns(), (Row{-1, -1, -1, -1}));
    rotate(1, true);
    EXPECT_EQ(turns(), (Row{0, 0, 0, 0}));
}

TEST_F(Rotation, FramesHoldForTheTurnedWindows) {
    screen(667, 375);
    for (const bool isSpring : {false, true})
        for (const std::int64_t orientation : {3, 4}) {
            rotate(orientation, isSpring);
            expectNear(state.right->frame(), {667, 0, 333.5, 375});
            expectNear(state.rightGrabber->frame(), {652, 0, 15, 375});
            expectNear(state.left->frame(), {-333.5, 0, 333.5, 375});
            expectNear(state.leftGrabber->frame(), {0, 0, 15, 375});
        }
}

TEST_F(Rotation, OnlyOrientationFourTakesTheLandscapeFractionWhateverTheScreen) {
    rotate(3, false);
    expectNear(state.right->frame(), {375, 0, 300, 667});
    rotate(4, false);
    expectNear(state.right->frame(), {375, 0, 187.5, 667});
    expectNear(state.left->frame(), {-187.5, 0, 187.5, 667});
}

TEST_F(Rotation, TheLowerHalfIsForTheLeftStripAlone) {
    screen(320, 568);
    preference("Grabber height", "half_bottom");
    rotate(1, false);
    expectNear(state.leftGrabber->frame(), {0, 284, 15, 284});
    expectNear(state.rightGrabber->frame(), {305, 0, 15, 568});
}

TEST_F(Rotation, TheUpperHalfCountsAsTheWhole) {
    preference("Grabber height", "half_top");
    rotate(1, false);
    expectNear(state.leftGrabber->frame(), {0, 0, 15, 667});
}

TEST_F(Rotation, PanelsAreGoneWithoutADismissal) {
    state.right->setHidden(false);
    state.left->setHidden(false);
    state.rightGrabber->setShowed(true);
    state.darking->setAlpha(1);
    state.darking->setFrame({0, 0, 75, 667});
    rotate(1, false);
    EXPECT_TRUE(state.right->isHidden());
    EXPECT_TRUE(state.left->isHidden());
    EXPECT_TRUE(state.rightGrabber->showed());
    EXPECT_EQ(state.darking->alpha(), 0);
    EXPECT_EQ(state.darking->frame(), Rect(0, 0, 375, 667));
    EXPECT_EQ(state.social->frame(), Rect(0, 0, 375, 667));
}

TEST_F(Rotation, UpsideDownOnlyHidesThePanels) {
    state.right->setHidden(false);
    state.left->setHidden(false);
    state.right->setFrame({1, 2, 3, 4});
    state.darking->setAlpha(0.5);
    state.darking->setFrame({5, 6, 7, 8});
    state.social->setFrame({9, 10, 11, 12});
    rotate(2, false);
    EXPECT_TRUE(state.right->isHidden());
    EXPECT_TRUE(state.left->isHidden());
    EXPECT_EQ(state.right->frame(), Rect(1, 2, 3, 4));
    EXPECT_EQ(state.darking->alpha(), 0.5);
    EXPECT_EQ(state.darking->frame(), Rect(5, 6, 7, 8));
    EXPECT_EQ(state.social->frame(), Rect(9, 10, 11, 12));
}

TEST_F(Rotation, AnyOtherValueStillResetsDimmingAndPlaceholder) {
    for (const std::int64_t orientation : {0, 5, 6, -3}) {
        state.right->setFrame({1, 2, 3, 4});
        state.darking->setAlpha(0.5);
        state.darking->setFrame({5, 6, 7, 8});
        state.social->setFrame({9, 10, 11, 12});
        rotate(orientation, true);
        EXPECT_EQ(state.right->frame(), Rect(1, 2, 3, 4));
        EXPECT_EQ(state.darking->alpha(), 0);
        EXPECT_EQ(state.darking->frame(), Rect(0, 0, 375, 667));
        EXPECT_EQ(state.social->frame(), Rect(0, 0, 375, 667));
    }
}

TEST_F(Rotation, APhoneIsLaidOutOnceAndThenOnlyAskedToTurn) {
    foundation::ProcessInfo::shared().deviceModel = "iPhone";
    // The launch has made the first call.
    state.right->setHidden(false);
    state.right->setFrame({1, 2, 3, 4});
    for (const std::int64_t orientation : {1, 2, 3, 4, 9}) {
        rotate(orientation, orientation % 2 == 0);
        EXPECT_EQ(toolkit::UIDevice::currentDevice().forcedOrientation(), orientation);
        EXPECT_FALSE(state.right->isHidden());
        EXPECT_EQ(state.right->frame(), Rect(1, 2, 3, 4));
    }
    vela::rotation::resetDone();
    rotate(1, false);
    EXPECT_TRUE(state.right->isHidden());
}

} // namespace
