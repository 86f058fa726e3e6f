#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "vela/panels/GrabberColors.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/ModuleState.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace {

/// A 375-point screen, both panels 300 points wide: the right one opens at 75, the left one at 0.
struct WindowGrabber : tests::ProductTest {
    WindowGrabber() {
        preferences(usualPreferences());
        launch();
        observer = foundation::NotificationCenter::defaultCenter().addObserver(
            vela::leftWindowGrabber::notificationName, [this](const foundation::Notification& notification) {
                const auto* dictionary = notification.object.dictionary();
                ASSERT_TRUE(dictionary && dictionary->size() == 1);
                posted.push_back(*notification.object["name"].string());
            });
    }
    ~WindowGrabber() override { observer.reset(); }

    vela::ModuleState& state = vela::moduleState();
    std::vector<std::string> posted;
    foundation::Handle observer;

    double rightX() const { return state.right->frame().x; }
    double leftX() const { return state.left->frame().x; }
    Rect dimming() const { return state.darking->frame(); }

    /// One move of exactly this distance and time, so that velocities come out exactly.
    void moveInOneStep(double x, double y, double seconds, std::int64_t finger = 1) {
        loop.advance(seconds);
        TouchDispatcher::shared().touchMove(finger, {x, y}, loop.now());
        loop.turn();
    }
    /// Pulls the panel to where the finger at `x` brings it, rests there and lets go.
    void pullSlowly(double from, double x) {
        touchDown(from, 300);
        touchMove(x, 300, 0.3);
        wait(0.3);
        touchUp();
    }
    void openRight() {
        pullSlowly(370, 70);
        wait(0.5);
        ASSERT_TRUE(state.rightGrabber->showed());
        ASSERT_EQ(rightX(), 75);
    }
    void openLeft() {
        pullSlowly(5, 305);
        wait(0.5);
        ASSERT_TRUE(state.leftGrabber->showed());
        ASSERT_EQ(leftX(), 0);
    }
    nlohmann::json properties(const vela::WindowGrabber& grabber) {
        nlohmann::json json;
        grabber.describeProperties(json);
        return json;
    }
    /// Lets go of the right strip at `velocity` points a second.
    void flingRight(double velocity) { flingFrom(370, 270, velocity); }
    void flingLeft(double velocity) { flingFrom(5, 105, velocity); }
    void flingFrom(double from, double to, double velocity) {
        touchDown(from, 300);
        // Rests long enough before and after so that the last step alone makes the velocity.
        moveInOneStep(to - velocity * 0.0625, 300, 0.25);
        wait(0.25);
        moveInOneStep(to - velocity * 0.0625, 300, 0.0);
        moveInOneStep(to, 300, 0.0625);
        touchUp();
    }
};

TEST_F(WindowGrabber, AGrabberIsUnseenAndCatchesTouches) {
    vela::rightWindowGrabber grabber;
    EXPECT_EQ(grabber.backgroundColor(), vela::grabberTint());
    EXPECT_EQ(grabber.backgroundColor()->alpha, 0.01);
    EXPECT_GT(grabber.backgroundColor()->red, 0);
    EXPECT_LT(grabber.backgroundColor()->red, 1e-300);
    EXPECT_TRUE(grabber.isUserInteractionEnabled());
    EXPECT_TRUE(grabber.clipsToBounds());
    EXPECT_FALSE(grabber.showed());
    EXPECT_EQ(grabber.contr()->type(), 3);
    EXPECT_EQ(grabber.rootViewController(), grabber.contr());
    EXPECT_EQ(grabber.contr()->view()->gestureRecognizers().size(), 1u);
    EXPECT_EQ(vela::leftWindowGrabber().contr()->type(), 2);
}

TEST_F(WindowGrabber, TheRightPanelComesInUnderTheFinger) {
    touchDown(370, 300);
    touchMove(340, 300, 1.0 / 60);
    EXPECT_FALSE(state.right->isHidden());
    EXPECT_EQ(rightX(), 375); // the pan begins where the finger is by then
    touchMove(240, 300, 0.1);
    EXPECT_EQ(state.right->frame(), Rect(275, 0, 300, 667));
    EXPECT_EQ(state.darking->alpha(), 1 - (275.0 - 75.0) / 300.0);
    EXPECT_EQ(dimming(), Rect(0, 0, 275, 667));
    EXPECT_EQ(state.darking->touchController(), 1);
    EXPECT_EQ(state.right->grabberView()->state(), 0);
    EXPECT_FALSE(state.rightGrabber->showed());
    touchUp();
    EXPECT_EQ(state.right->grabberView()->state(), 1);
}

TEST_F(WindowGrabber, TheLeftPanelComesInUnderTheFinger) {
    touchDown(5, 300);
    touchMove(35, 300, 1.0 / 60);
    touchMove(135, 300, 0.1);
    EXPECT_EQ(state.left->frame(), Rect(-200, 0, 300, 667));
    EXPECT_EQ(state.darking->alpha(), 100.0 / 300.0);
    EXPECT_EQ(dimming(), Rect(99.5, 0, 275.5, 667)); // half a point inside the panel
    EXPECT_EQ(state.darking->touchController(), 0);
    touchUp();
}

TEST_F(WindowGrabber, PullingFurtherThanOpenPinsThePanel) {
    touchDown(370, 300);
    touchMove(355, 300, 1.0 / 60);
    touchMove(10, 300, 0.2);
    EXPECT_EQ(rightX(), 75);
    EXPECT_EQ(state.darking->alpha(), 1);
    touchUp();
    wait(0.5);
    tap(20, 300);
    wait(0.5);
    touchDown(5, 300);
    touchMove(20, 300, 1.0 / 60);
    touchMove(374, 300, 0.2);
    EXPECT_EQ(leftX(), 0);
    EXPECT_EQ(state.darking->alpha(), 1);
    touchUp();
}

TEST_F(WindowGrabber, BeyondTheScreensEdgeTheAlphaGoesBelowZero) {
    touchDown(362, 300);
    touchMove(350, 300, 1.0 / 60);
    touchMove(374, 300, 0.1);
    EXPECT_EQ(rightX(), 399);
    EXPECT_EQ(state.darking->alpha(), 1 - (399.0 - 75.0) / 300.0);
    EXPECT_LT(state.darking->alpha(), 0);
    touchUp();
    wait(0.5);
    touchDown(13, 300);
    touchMove(25, 300, 1.0 / 60);
    touchMove(1, 300, 0.1);
    EXPECT_EQ(leftX(), -324);
    EXPECT_EQ(state.darking->alpha(), -24.0 / 300.0);
    touchUp();
}

TEST_F(WindowGrabber, AReleaseAtExactlyFiveHundredIsAFling) {
    flingRight(-500);
    EXPECT_EQ(properties(*state.rightGrabber)["velocity"], -500.0f);
    EXPECT_EQ(rightX(), 75);
    wait(0.199);
    EXPECT_FALSE(state.rightGrabber->showed());
    wait(0.002);
    EXPECT_TRUE(state.rightGrabber->showed());
    tap(20, 300);
    wait(0.5);
    flingLeft(500);
    EXPECT_EQ(properties(*state.leftGrabber)["velocity"], 500.0f);
    wait(0.201);
    EXPECT_TRUE(state.leftGrabber->showed());
}

TEST_F(WindowGrabber, AFlingBackAtExactlyFiveHundredDismisses) {
    openRight();
    flingFrom(80, 180, 500);
    EXPECT_EQ(rightX(), 375);
    wait(0.201);
    EXPECT_FALSE(state.rightGrabber->showed());
    openLeft();
    flingFrom(290, 190, -500);
    EXPECT_EQ(leftX(), -300);
    wait(0.201);
    EXPECT_FALSE(state.leftGrabber->showed());
}

TEST_F(WindowGrabber, AFlingsDurationIsAHundredPointsAtItsSpeed) {
    flingRight(-2000);
    wait(0.049);
    EXPECT_FALSE(state.rightGrabber->showed());
    wait(0.002);
    EXPECT_TRUE(state.rightGrabber->showed());
}

TEST_F(WindowGrabber, BelowFiveHundredTheHalfWayRuleDecides) {
    // The panel has come in by the last step alone, far from half way: a release at 499 is slow, and closes.
    flingRight(-499);
    EXPECT_EQ(rightX(), 375);
    wait(0.31);
    EXPECT_TRUE(state.right->isHidden());
    flingLeft(499);
    EXPECT_EQ(leftX(), -300);
}

TEST_F(WindowGrabber, ExactlyHalfWayBothPanelsOpen) {
    touchDown(370, 300);
    touchMove(350, 300, 1.0 / 60); // begins here
    touchMove(200, 300, 0.3);
    ASSERT_EQ(rightX(), 225);
    wait(0.3);
    touchUp();
    EXPECT_EQ(rightX(), 75);
    wait(0.31);
    EXPECT_TRUE(state.rightGrabber->showed());
    tap(20, 300);
    wait(0.5);

    touchDown(5, 300);
    touchMove(25, 300, 1.0 / 60);
    touchMove(175, 300, 0.3);
    ASSERT_EQ(leftX(), -150);
    wait(0.3);
    touchUp();
    EXPECT_EQ(leftX(), 0);
}

TEST_F(WindowGrabber, AtAlmostAFlingsSpeedExactlyHalfWayBothPanelsOpen) {
    const double step = 499 * 0.0625;
    touchDown(370, 300);
    touchMove(350, 300, 1.0 / 60); // begins here
    moveInOneStep(200 - step, 300, 0.25);
    wait(0.25);
    moveInOneStep(200 - step, 300, 0);
    moveInOneStep(200, 300, 0.0625); // back towards closed
    EXPECT_EQ(properties(*state.rightGrabber)["velocity"], 499.0f);
    ASSERT_EQ(rightX(), 225);
    touchUp();
    EXPECT_EQ(rightX(), 75);
    wait(0.31);
    tap(20, 300);
    wait(0.5);

    touchDown(5, 300);
    touchMove(25, 300, 1.0 / 60);
    moveInOneStep(175 + step, 300, 0.25);
    wait(0.25);
    moveInOneStep(175 + step, 300, 0);
    moveInOneStep(175, 300, 0.0625);
    EXPECT_EQ(properties(*state.leftGrabber)["velocity"], -499.0f);
    ASSERT_EQ(leftX(), -150);
    touchUp();
    EXPECT_EQ(leftX(), 0);
}

TEST_F(WindowGrabber, JustShortOfHalfWayBothPanelsClose) {
    touchDown(370, 300);
    touchMove(350, 300, 1.0 / 60);
    touchMove(200.5, 300, 0.3);
    wait(0.3);
    touchUp();
    EXPECT_EQ(rightX(), 375);
    wait(0.5);
    EXPECT_TRUE(state.right->isHidden());

    touchDown(5, 300);
    touchMove(25, 300, 1.0 / 60);
    touchMove(174.5, 300, 0.3);
    wait(0.3);
    touchUp();
    EXPECT_EQ(leftX(), -300);
}

TEST_F(WindowGrabber, ASlowReleaseTakesThreeTenths) {
    pullSlowly(370, 100);
    EXPECT_FALSE(state.rightGrabber->showed());
    wait(0.299);
    EXPECT_FALSE(state.rightGrabber->showed());
    wait(0.002);
    EXPECT_TRUE(state.rightGrabber->showed());
    EXPECT_EQ(state.darking->alpha(), 1);
    EXPECT_EQ(dimming(), Rect(0, 0, 75, 667));
}

TEST_F(WindowGrabber, TheShowAnimationEasesIn) {
    pullSlowly(370, 200);
    wait(0.15);
    const auto shown = std::get<Point>(state.right->layer()->presented(LayerProperty::Position));
    const double from =
        std::max(75.0, static_cast<double>(properties(*state.rightGrabber)["last"].get<float>()) -
                           (properties(*state.rightGrabber)["start"].get<double>() -
                            properties(*state.rightGrabber)["end"].get<double>()));
    const double progress = (from - (shown.x - 150)) / (from - 75);
    EXPECT_NEAR(progress, curveValue(AnimationCurve::EaseIn, 0.5), 0.02);
    EXPECT_LT(progress, 0.4);
}

TEST_F(WindowGrabber, ADismissalHidesThePanelAtItsEnd) {
    openRight();
    state.rightGrabber->dismissControllerWithDuration(0.25f, 375.0f);
    EXPECT_EQ(rightX(), 375);
    EXPECT_EQ(state.darking->alpha(), 0);
    EXPECT_EQ(dimming(), Rect(0, 0, 375, 667));
    EXPECT_FALSE(state.right->isHidden());
    EXPECT_TRUE(state.rightGrabber->showed());
    wait(0.251);
    EXPECT_TRUE(state.right->isHidden());
    EXPECT_FALSE(state.rightGrabber->showed());
}

TEST_F(WindowGrabber, TheDismissalEasesInToo) {
    openRight();
    state.rightGrabber->dismissControllerWithTap();
    wait(0.15);
    const auto shown = std::get<Point>(state.right->layer()->presented(LayerProperty::Position));
    EXPECT_NEAR((shown.x - 150 - 75) / 300, curveValue(AnimationCurve::EaseIn, 0.5), 0.02);
}

TEST_F(WindowGrabber, AnInterruptedDismissalLeavesThePanelUnhiddenAndShown) {
    openRight();
    state.rightGrabber->dismissControllerWithTap();
    wait(0.1);
    touchDown(370, 300);
    touchMove(350, 300, 1.0 / 60); // as far as this finger is concerned, the panel begins closed
    wait(1);
    EXPECT_TRUE(state.rightGrabber->showed());
    EXPECT_FALSE(state.right->isHidden());
    touchUp();
    wait(0.5);
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_TRUE(state.right->isHidden());
}

TEST_F(WindowGrabber, TheLeftDimmingOverlapsThePanelOnlyWhilePulledOrShown) {
    openLeft();
    EXPECT_EQ(dimming(), Rect(299.5, 0, 75.5, 667));
    state.leftGrabber->dismissControllerWithTap();
    EXPECT_EQ(dimming(), Rect(0, 0, 375, 667));
    wait(0.5);
    state.leftGrabber->dismissControllerWithDuration(0.1f, -300.0f);
    EXPECT_EQ(dimming(), Rect(0, 0, 375, 667));
}

TEST_F(WindowGrabber, ATapOnTheDimmedAreaClosesThePanelThatIsShown) {
    openRight();
    posted.clear();
    tap(30, 300);
    EXPECT_EQ(rightX(), 375);
    EXPECT_TRUE(posted.empty()); // the left grabber is not told
    wait(0.3);
    EXPECT_FALSE(state.rightGrabber->showed());
    openLeft();
    tap(350, 300);
    wait(0.3);
    EXPECT_FALSE(state.leftGrabber->showed());
    EXPECT_TRUE(state.left->isHidden());
}

TEST_F(WindowGrabber, APanOnTheDimmedAreaDragsThePanel) {
    openRight();
    touchDown(30, 300);
    touchMove(50, 300, 1.0 / 60);
    touchMove(150, 300, 0.1);
    EXPECT_EQ(rightX(), 175);
    EXPECT_TRUE(state.rightGrabber->showed());
    touchUp();
}

TEST_F(WindowGrabber, AnOpenPanelIsDraggedShutByItsGrabStripWithTheSameBlur) {
    preference("Blur", "auto");
    host->screen = tests::greyImage(255);
    openRight();
    EXPECT_EQ(host->captures, 1);
    EXPECT_EQ(state.right->blurView()->effect(), VisualEffect::blur(BlurEffectStyle::Dark));
    host->screen = tests::greyImage(0);
    touchDown(85, 300);
    touchMove(105, 300, 1.0 / 60);
    touchMove(285, 300, 0.3);
    EXPECT_EQ(rightX(), 255);
    EXPECT_EQ(host->captures, 1);
    EXPECT_EQ(state.right->blurView()->effect(), VisualEffect::blur(BlurEffectStyle::Dark));
    wait(0.3);
    touchUp();
    wait(0.31);
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_TRUE(state.right->isHidden());
    touchDown(370, 300);
    touchMove(300, 300, 0.1);
    EXPECT_EQ(host->captures, 2);
    EXPECT_EQ(state.right->blurView()->effect(), VisualEffect::blur(BlurEffectStyle::Light));
    EXPECT_EQ(state.right->vibrancyView()->effect(),
              VisualEffect::vibrancyFor(VisualEffect::blur(BlurEffectStyle::Light)));
    touchUp();
}

TEST_F(WindowGrabber, TheLeftPanelsBlurIsChosenTheSameWay) {
    preference("Blur", "light");
    openLeft();
    EXPECT_EQ(state.left->blurView()->effect(), VisualEffect::blur(BlurEffectStyle::Light));
    EXPECT_EQ(host->captures, 0);
}

TEST_F(WindowGrabber, AnInterruptedShowLeavesThePanelUnhiddenAndNotShown) {
    pullSlowly(370, 100);
    wait(0.1);
    touchDown(30, 300);
    touchMove(50, 300, 1.0 / 60);
    EXPECT_FALSE(state.rightGrabber->showed());
    wait(1);
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_FALSE(state.right->isHidden());
    touchUp();
    wait(0.5);
    EXPECT_TRUE(state.rightGrabber->showed());
}

TEST_F(WindowGrabber, ARepeatedTapDismissesOnce) {
    openRight();
    tap(30, 300);
    wait(0.1);
    state.rightGrabber->dismissControllerWithTap();
    wait(0.5);
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_TRUE(state.right->isHidden());
}

TEST_F(WindowGrabber, WhileOnePanIsChangingTheOthersCallbacksOnlyDismissTheirPanel) {
    // Both fingers come down before either panel moves: the dimmed area would lie over the other strip.
    touchDown(5, 300, 1);
    touchDown(370, 400, 2);
    touchMove(30, 300, 1.0 / 60, 1);
    touchMove(60, 300, 1.0 / 60, 1);
    const double followed = leftX();
    ASSERT_EQ(followed, -270);
    touchMove(300, 400, 0.1, 2);
    EXPECT_EQ(rightX(), 375);
    EXPECT_EQ(state.right->grabberView()->state(), 1); // not even the pan's begin was handled
    EXPECT_EQ(state.darking->touchController(), 0);
    EXPECT_EQ(leftX(), followed);
    EXPECT_EQ(state.darking->alpha(), 0); // the tap dismissal's work
    wait(0.29);
    EXPECT_TRUE(state.right->isHidden());
    touchUp(2);
    touchUp(1);
}

TEST_F(WindowGrabber, AndTheOtherWayRound) {
    touchDown(370, 300, 1);
    touchDown(5, 400, 2);
    touchMove(340, 300, 1.0 / 60, 1);
    touchMove(300, 300, 1.0 / 60, 1);
    touchMove(60, 400, 1.0 / 60, 2);
    EXPECT_EQ(posted, std::vector<std::string>{"dismissed"});
    EXPECT_EQ(leftX(), -300);
    EXPECT_EQ(state.left->board()->retried(), 1); // the board was not asked
    touchMove(90, 400, 1.0 / 60, 2);
    EXPECT_EQ(posted, (std::vector<std::string>{"dismissed", "dismissed"}));
    EXPECT_EQ(rightX(), 335);
    touchUp(2);
    touchUp(1);
}

TEST_F(WindowGrabber, APanThatHasOnlyBegunDoesNotHoldTheOtherBack) {
    touchDown(5, 300, 1);
    touchDown(370, 400, 2);
    touchMove(30, 300, 1.0 / 60, 1);
    touchMove(350, 400, 1.0 / 60, 2);
    EXPECT_EQ(state.darking->touchController(), 1);
    EXPECT_FALSE(state.right->isHidden());
    touchUp(2);
    touchUp(1);
}

TEST_F(WindowGrabber, TheLeftPanelAnnouncesItselfWhenItsAnimationsStart) {
    touchDown(5, 300);
    touchMove(305, 300, 0.3);
    EXPECT_TRUE(posted.empty());
    wait(0.3);
    touchUp();
    EXPECT_EQ(posted, std::vector<std::string>{"invoked"});
    wait(0.5);
    state.leftGrabber->dismissControllerWithTap();
    state.leftGrabber->dismissControllerWithTap();
    EXPECT_EQ(posted, (std::vector<std::string>{"invoked", "dismissed", "dismissed"}));
    state.leftGrabber->showControllerWithDuration(0.1f, 0.0f);
    EXPECT_EQ(posted.back(), "invoked");
    wait(0.5);
    tap(350, 300);
    wait(0.5);
    const std::size_t count = posted.size();
    openRight();
    EXPECT_EQ(posted.size(), count);
}

TEST_F(WindowGrabber, ItIsAnnouncedBeforeThePanelMoves) {
    std::vector<double> positions;
    const auto listener = foundation::NotificationCenter::defaultCenter().addObserver(
        vela::leftWindowGrabber::notificationName,
        [&](const foundation::Notification&) { positions.push_back(leftX()); });
    state.leftGrabber->showControllerWithDuration(0.1f, 0);
    wait(0.5);
    state.leftGrabber->dismissControllerWithTap();
    wait(0.5);
    state.leftGrabber->dismissControllerWithDuration(0.1f, -200);
    EXPECT_EQ(positions, (std::vector<double>{-300, 0, -300}));
}

TEST_F(WindowGrabber, TheBoardLooksForPlugInsAtEveryPull) {
    const auto before = state.left->board()->retried();
    touchDown(5, 300);
    touchMove(100, 300, 0.1);
    touchUp();
    EXPECT_GE(state.left->board()->retried(), before);
    EXPECT_EQ(state.left->board()->retried(), 2); // it has looked at creation and now, and found none
}

TEST_F(WindowGrabber, ChevronsOfTheAlternativeStyleRideOnThePanelsEdge) {
    preference("Alternative chevrons", true);
    wait(0.5);
    touchDown(370, 300);
    touchMove(350, 300, 1.0 / 60);
    touchMove(250, 300, 0.1);
    const auto& right = *state.darking->rightChevron();
    EXPECT_FALSE(right.isHidden());
    EXPECT_TRUE(state.darking->leftChevron()->isHidden());
    const Rect chevron = right.frame();
    EXPECT_NEAR(chevron.maxX(), rightX(), 1e-9);
    EXPECT_NEAR(chevron.center().y, 333.5, 1e-9);
    touchMove(60, 300, 0.1);
    touchUp();
    EXPECT_NEAR(right.frame().maxX(), 75, 1e-9);
    wait(0.5);
    tap(10, 10);
    EXPECT_NEAR(right.frame().maxX(), 375, 1e-9);
    EXPECT_NEAR(right.frame().center().y, 333.5, 1e-9);
    wait(0.5);
    touchDown(5, 300);
    touchMove(100, 300, 0.1);
    EXPECT_FALSE(state.darking->leftChevron()->isHidden());
    EXPECT_TRUE(state.darking->rightChevron()->isHidden());
    EXPECT_NEAR(state.darking->leftChevron()->frame().x, 0, 1e-9);
    EXPECT_NEAR(state.darking->leftChevron()->frame().center().y, 333.5, 1e-9);
    touchUp();
}

TEST_F(WindowGrabber, TheLeftPanelsShowAnimationCentresItsChevronByTheOthersHeight) {
    auto& left = *state.darking->leftChevron();
    const Size own = left.frame().size();
    state.darking->rightChevron()->setFrame({0, 0, 20, 100});
    state.leftGrabber->showControllerWithDuration(0.1f, 0);
    EXPECT_NEAR(left.frame().x, 0, 1e-9);
    EXPECT_NEAR(left.frame().y, (667 - 100) * 0.5, 1e-9);
    EXPECT_NEAR(left.frame().height, own.height, 1e-9);
}

TEST_F(WindowGrabber, WithoutTheAlternativeStyleBothChevronsAreHidden) {
    touchDown(370, 300);
    touchMove(250, 300, 0.1);
    EXPECT_TRUE(state.darking->rightChevron()->isHidden());
    EXPECT_TRUE(state.darking->leftChevron()->isHidden());
    touchUp();
}

TEST_F(WindowGrabber, FieldsAreRoundedToSinglePrecision) {
    touchDown(370.1, 300);
    touchMove(350.1, 300, 1.0 / 60);
    moveInOneStep(300.3, 300, 1.0 / 60);
    const auto json = properties(*state.rightGrabber);
    EXPECT_EQ(json["start"].get<double>(), static_cast<double>(350.1f));
    EXPECT_EQ(json["end"].get<double>(), static_cast<double>(300.3f));
    const double delta = -(static_cast<double>(300.3f) - static_cast<double>(350.1f));
    EXPECT_EQ(rightX(), 375.0 - delta);
    touchUp();
}

// Axis.

TEST_F(WindowGrabber, ADeviceTurnedUnderAnUprightInterfaceIsReadAlongY) {
    device(DeviceOrientation::LandscapeLeft);
    EXPECT_TRUE(state.rightGrabber->wantY());
    device(DeviceOrientation::Portrait);
    EXPECT_FALSE(state.rightGrabber->wantY());
    device(DeviceOrientation::Unknown);
    EXPECT_TRUE(state.rightGrabber->wantY());
    host->statusBar = 3;
    device(DeviceOrientation::LandscapeLeft);
    EXPECT_FALSE(state.rightGrabber->wantY());
}

TEST_F(WindowGrabber, FaceUpAndFaceDownAreAlwaysReadAlongX) {
    for (const auto orientation : {DeviceOrientation::FaceUp, DeviceOrientation::FaceDown})
        for (const std::int64_t statusBar : {1, 3}) {
            device(orientation);
            host->statusBar = statusBar;
            EXPECT_FALSE(state.rightGrabber->wantY());
            EXPECT_FALSE(state.leftGrabber->wantY());
        }
}

TEST_F(WindowGrabber, AlongYThePanFollowsTheVerticalFinger) {
    device(DeviceOrientation::LandscapeLeft);
    touchDown(367, 600);
    touchMove(367, 580, 1.0 / 60);
    touchMove(367, 480, 0.1);
    // delta = 100; the span is the screen's height, so the panel opens at 667 - 300.
    EXPECT_EQ(rightX(), std::max(375.0 - 100.0, 367.0));
    EXPECT_LT(properties(*state.rightGrabber)["velocity"].get<double>(), 0);
    touchUp();
}

TEST_F(WindowGrabber, InLandscapeRightTheVerticalAxisIsReversed) {
    device(DeviceOrientation::LandscapeRight);
    touchDown(8, 200);
    touchMove(8, 180, 1.0 / 60);
    touchMove(8, 80, 0.1);
    // The finger went up by 100: delta = -100, the left panel moves in.
    EXPECT_EQ(leftX(), -200);
    EXPECT_GT(properties(*state.leftGrabber)["velocity"].get<double>(), 0);
    touchUp();
}

struct PortraitOnly : UIViewController {
    unsigned supportedInterfaceOrientations() const override { return orientationMaskPortrait; }
};

TEST_F(WindowGrabber, APortraitOnlyApplicationIsReadAlongXOverTheHeightOfTheScreen) {
    host->window->setRootViewController(std::make_shared<PortraitOnly>());
    EXPECT_FALSE(state.rightGrabber->isFuckingInverted()); // nothing is known to be in front
    vela::availability::applied().offID = "com.example.clock";
    EXPECT_TRUE(state.rightGrabber->isFuckingInverted());
    device(DeviceOrientation::LandscapeLeft);
    EXPECT_TRUE(state.leftGrabber->wantY());
    touchDown(5, 300);
    touchMove(25, 300, 1.0 / 60);
    touchMove(125, 300, 0.1);
    EXPECT_EQ(leftX(), -200);
    EXPECT_EQ(dimming(), Rect(99.5, 0, 667 - 100 + 0.5, 667));
    touchUp();
}

TEST_F(WindowGrabber, AnApplicationThatTurnsIsNotInverted) {
    vela::availability::applied().offID = "com.example.photos";
    EXPECT_FALSE(state.rightGrabber->isFuckingInverted());
}

TEST_F(WindowGrabber, ASizelessPanelCanBeDraggedWithoutHarm) {
    preference("right_size_portrait", {});
    wait(0.5);
    touchDown(370, 300);
    touchMove(200, 300, 0.2);
    touchUp();
    wait(0.5);
    EXPECT_EQ(state.right->frame().width, 0);
}

TEST_F(WindowGrabber, ACancelledTouchIsDecidedLikeARelease) {
    touchDown(370, 300);
    touchMove(100, 300, 0.3);
    TouchDispatcher::shared().touchCancel(1, loop.now());
    EXPECT_EQ(rightX(), 75);
    wait(0.5);
    EXPECT_TRUE(state.rightGrabber->showed());
}

TEST_F(WindowGrabber, TheDelegateNeverAllowsTwoGesturesAtOnce) {
    auto& pan = *state.darking->rightPan();
    auto& tap = *state.darking->rightTap();
    ASSERT_EQ(pan.delegate(), state.rightGrabber.get());
    EXPECT_FALSE(pan.delegate()->gestureRecognizerShouldRecognizeSimultaneously(pan, tap));
}

} // namespace
