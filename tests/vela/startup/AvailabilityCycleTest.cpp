#include "tests/vela/support/ProductTest.h"

#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "vela/panels/GrabberColors.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"

using foundation::PropertyList;
using toolkit::DeviceOrientation;
using toolkit::Rect;

namespace {

struct AvailabilityCycle : tests::ProductTest {
    AvailabilityCycle() {
        preferences(usualPreferences());
        launch();
    }
    vela::ModuleState& state = vela::moduleState();

    void pass() { vela::messages::velaCycler(*host->springBoard); }
    static bool isTint(const toolkit::UIWindow& window) {
        return window.backgroundColor() == vela::grabberTint();
    }
    static bool isClear(const toolkit::UIWindow& window) { return window.backgroundColor()->isClear(); }
    bool leftTakesTouches() const {
        return toolkit::WindowServer::shared().windowAt({5, 300}) == state.leftGrabber.get();
    }
    bool rightTakesTouches() const {
        return toolkit::WindowServer::shared().windowAt({370, 300}) == state.rightGrabber.get();
    }
    std::shared_ptr<homescreen::SBApplication> application(const std::string& identifier) {
        return std::make_shared<homescreen::SBApplication>(identifier, identifier);
    }
};

TEST_F(AvailabilityCycle, EverythingEnabledMakesBothGrabbersActive) {
    EXPECT_TRUE(leftTakesTouches());
    EXPECT_TRUE(rightTakesTouches());
    EXPECT_TRUE(isTint(*state.leftGrabber));
    EXPECT_TRUE(isTint(*state.rightGrabber));
}

TEST_F(AvailabilityCycle, SwitchedOffTheLeftGrabberKeepsItsInteractionButLetsTouchesThrough) {
    preference("Enable", false);
    wait(0.5);
    EXPECT_TRUE(isClear(*state.rightGrabber));
    EXPECT_FALSE(state.rightGrabber->isUserInteractionEnabled());
    EXPECT_TRUE(isClear(*state.leftGrabber));
    EXPECT_TRUE(state.leftGrabber->isUserInteractionEnabled());
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, AbsentEnableMeansOff) {
    preference("Enable", {});
    pass();
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, TheKeyboardTakesBothGrabbersInteractionAndTheLeftOneItsTintBack) {
    preference("Keyboard", true);
    host->keyboard = {0, 451, 375, 216};
    pass();
    EXPECT_FALSE(state.leftGrabber->isUserInteractionEnabled());
    EXPECT_FALSE(state.rightGrabber->isUserInteractionEnabled());
    EXPECT_TRUE(isTint(*state.leftGrabber));
    EXPECT_TRUE(isClear(*state.rightGrabber));
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(rightTakesTouches());
    host->keyboard = {0, 667, 375, 0};
    pass();
    EXPECT_TRUE(leftTakesTouches());
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, WithoutItsSettingTheKeyboardIsIgnored) {
    host->keyboard = {0, 451, 375, 216};
    pass();
    EXPECT_TRUE(leftTakesTouches());
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, AnApplicationListedInThePreferencesSwitchesBothGrabbersOffWhileInFront) {
    preference("com.example.game", true);
    host->top = application("com.example.game");
    pass();
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(rightTakesTouches());
    host->top = application("com.example.other");
    pass();
    EXPECT_TRUE(leftTakesTouches());
    host->top = application("com.example.game");
    pass();
    host->top = nullptr;
    pass();
    EXPECT_TRUE(leftTakesTouches());
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, TheLockScreenSwitchesOffOnlyWhenItsSwitchIsOn) {
    host->locked = true;
    pass();
    EXPECT_TRUE(rightTakesTouches());
    preference("Lockscreen", true);
    pass();
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(rightTakesTouches());
    host->locked = false;
    pass();
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, TheLeftPanelCanBeDisabledAlone) {
    preference("Disable Left Controller", true);
    pass();
    EXPECT_FALSE(leftTakesTouches());
    EXPECT_FALSE(state.leftGrabber->isUserInteractionEnabled());
    EXPECT_TRUE(isClear(*state.leftGrabber));
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, ANewSizeLaysPanelAndDimmingOutAndTakesThePanelForClosed) {
    state.rightGrabber->setShowed(true);
    state.leftGrabber->setShowed(true);
    state.darking->setAlpha(1);
    preference("right_size_portrait", 0.75);
    wait(0.5);
    EXPECT_EQ(state.right->frame(), Rect(375, 0, 281.25, 667));
    EXPECT_EQ(state.darking->alpha(), 0);
    EXPECT_EQ(state.darking->frame(), Rect(0, 0, 375, 667));
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_TRUE(state.leftGrabber->showed());
    preference("left_size_landscape", 0.35);
    wait(0.5);
    EXPECT_FALSE(state.leftGrabber->showed());
}

TEST_F(AvailabilityCycle, EachOfTheFourSizesConcernsThePanelOfItsSide) {
    for (const std::string side : {"left", "right"})
        for (const std::string way : {"portrait", "landscape"}) {
            auto& panel = side == "left" ? static_cast<toolkit::UIWindow&>(*state.left)
                                         : static_cast<toolkit::UIWindow&>(*state.right);
            auto& other = side == "left" ? static_cast<toolkit::UIWindow&>(*state.right)
                                         : static_cast<toolkit::UIWindow&>(*state.left);
            panel.setFrame({1, 2, 3, 4});
            other.setFrame({5, 6, 7, 8});
            state.darking->setFrame({9, 10, 11, 12});
            state.leftGrabber->setShowed(true);
            state.rightGrabber->setShowed(true);
            preference(side + "_size_" + way, 0.75);
            pass();
            const double width = way == "portrait" ? 281.25 : 300;
            EXPECT_EQ(panel.frame(), side == "left" ? Rect(-width, 0, width, 667) : Rect(375, 0, width, 667));
            EXPECT_EQ(other.frame(), Rect(5, 6, 7, 8));
            EXPECT_EQ(state.darking->frame(), Rect(0, 0, 375, 667));
            EXPECT_EQ(state.leftGrabber->showed(), side != "left");
            EXPECT_EQ(state.rightGrabber->showed(), side != "right");
            panel.setFrame({1, 2, 3, 4});
            pass();
            EXPECT_EQ(panel.frame(), Rect(1, 2, 3, 4)) << "laid out for a change alone";
            preferences(usualPreferences());
            pass();
        }
}

TEST_F(AvailabilityCycle, TheFirstPassAppliesEverythingOnce) {
    EXPECT_EQ(state.leftGrabber->frame(), Rect(0, 0, 15, 667));
    EXPECT_EQ(state.rightGrabber->frame(), Rect(360, 0, 15, 667));
    EXPECT_EQ(state.right->frame(), Rect(375, 0, 300, 667));
    EXPECT_EQ(state.left->frame(), Rect(-300, 0, 300, 667));
    EXPECT_TRUE(state.right->isHidden());
    EXPECT_TRUE(state.left->isHidden());
    EXPECT_EQ(vela::availability::applied().orientation, 1);
    EXPECT_FALSE(toolkit::UIDevice::currentDevice().forcedOrientation());
}

TEST_F(AvailabilityCycle, SensibilityAndHeightAreAppliedWithinHalfASecond) {
    preference("Sensibility", "Height");
    wait(0.5);
    EXPECT_EQ(state.leftGrabber->frame().width, 30);
    EXPECT_EQ(state.rightGrabber->frame(), Rect(345, 0, 30, 667));
    preference("Grabber height", "half_bottom");
    wait(0.5);
    EXPECT_EQ(state.leftGrabber->frame(), Rect(0, 333.5, 30, 333.5));
    EXPECT_EQ(state.rightGrabber->frame(), Rect(345, 333.5, 30, 333.5));
}

TEST_F(AvailabilityCycle, AStripOfAnotherHeightIsLaidOutAgain) {
    state.rightGrabber->setFrame({100, 100, 15, 50});
    pass();
    EXPECT_EQ(state.rightGrabber->frame(), Rect(360, 0, 15, 667));
}

TEST_F(AvailabilityCycle, AStripsHeightIsMeasuredByTheStatusBarsOrientation) {
    host->statusBar = 3; // across the screen, as an upright device sees it
    for (int i = 0; i < 2; ++i) {
        state.rightGrabber->setFrame({100, 0, 15, 667});
        pass();
        EXPECT_EQ(state.rightGrabber->frame(), Rect(360, 0, 15, 667)) << "667 is not the height of 375";
    }
}

TEST_F(AvailabilityCycle, AnUnchangedHeightLeavesTheStripsWhereTheyAre) {
    state.rightGrabber->setFrame({100, 0, 15, 667});
    pass();
    EXPECT_EQ(state.rightGrabber->frame(), Rect(100, 0, 15, 667));
}

TEST_F(AvailabilityCycle, AnAbsentHeightLaysTheStripsOutOnEveryPass) {
    preference("Grabber height", {});
    for (int i = 0; i < 3; ++i) {
        state.rightGrabber->setFrame({100, 0, 15, 667});
        pass();
        EXPECT_EQ(state.rightGrabber->frame(), Rect(360, 0, 15, 667));
    }
}

TEST_F(AvailabilityCycle, ChevronsFollowTheirSetting) {
    EXPECT_FALSE(state.left->grabberContainer()->isHidden());
    preference("Alternative chevrons", true);
    pass();
    EXPECT_TRUE(state.left->grabberContainer()->isHidden());
    EXPECT_TRUE(state.right->grabberContainer()->isHidden());
    EXPECT_FALSE(state.darking->leftChevron()->isHidden());
    EXPECT_FALSE(state.darking->rightChevron()->isHidden());
    EXPECT_TRUE(state.lastChevrons);
}

TEST_F(AvailabilityCycle, TheOrientationOfTheApplicationInFrontIsPassedOn) {
    auto photos = application("com.example.photos");
    photos->setStatusBarOrientation(3);
    host->top = photos;
    pass();
    EXPECT_EQ(vela::availability::applied().orientation, 3);
    EXPECT_EQ(toolkit::UIDevice::currentDevice().forcedOrientation(), 3);
    toolkit::UIDevice::currentDevice().clearForcedOrientation();
    pass();
    EXPECT_FALSE(toolkit::UIDevice::currentDevice().forcedOrientation());
    host->top = nullptr;
    host->statusBar = 4;
    pass();
    EXPECT_EQ(vela::availability::applied().orientation, 4);
}

TEST_F(AvailabilityCycle, AnApplicationWithoutStatusBarCountsAsPortraitAndCannotSwitchOff) {
    host->statusBar = 3;
    pass();
    EXPECT_EQ(vela::availability::applied().orientation, 3);
    preference("NSObject", true);
    host->top = std::make_shared<runtime::Object>();
    pass();
    EXPECT_EQ(vela::availability::applied().orientation, 1);
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, BeforeTheWindowsStandAPassOnlyNotesStaleFrames) {
    vela::moduleState().left.reset();
    state.leftGrabber->setFrame({0, 0, 15, 100});
    vela::availability::applied().grabberHeight = "full";
    preference("Enable", false);
    pass();
    EXPECT_EQ(vela::availability::applied().grabberHeight, PropertyList(""));
    EXPECT_TRUE(isTint(*state.rightGrabber));
}

TEST_F(AvailabilityCycle, ItRunsEveryHalfSecondForEver) {
    preference("Enable", false);
    wait(0.49);
    EXPECT_TRUE(rightTakesTouches());
    wait(0.02);
    EXPECT_FALSE(rightTakesTouches());
    wait(60);
    preference("Enable", true);
    wait(0.5);
    EXPECT_TRUE(rightTakesTouches());
}

TEST_F(AvailabilityCycle, APassWithoutNewsChangesNothingOnScreen) {
    wait(1);
    const auto before = toolkit::Layer::changeCount();
    for (int i = 0; i < 10; ++i)
        pass();
    EXPECT_EQ(toolkit::Layer::changeCount(), before);
    EXPECT_FALSE(state.left->needsLayout());
    EXPECT_FALSE(state.right->needsLayout());
    EXPECT_FALSE(state.darking->needsLayout());
}

TEST_F(AvailabilityCycle, GetOffIDAnswersWhatTheDisplayLeft) {
    EXPECT_EQ(vela::messages::getOffID(*host->springBoard), "");
    vela::availability::applied().offID = "com.example.notes";
    EXPECT_EQ(vela::messages::getOffID(*host->springBoard), "com.example.notes");
}

} // namespace
