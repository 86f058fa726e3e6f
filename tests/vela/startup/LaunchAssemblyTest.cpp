#include "tests/vela/support/ProductTest.h"

#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"

using toolkit::Rect;

namespace {

struct LaunchAssembly : tests::ProductTest {
    LaunchAssembly() { preferences(usualPreferences()); }
    vela::ModuleState& state = vela::moduleState();
};

TEST_F(LaunchAssembly, TheHostsLaunchIsCompleteBeforeAnyWindowIsMade) {
    bool windowsThen = true;
    host->duringLaunch = [&] { windowsThen = state.darking || state.right || state.left || state.social; };
    launch();
    EXPECT_EQ(host->launches, 1);
    EXPECT_FALSE(windowsThen);
    EXPECT_EQ(state.spring, host->springBoard.get());
}

TEST_F(LaunchAssembly, TheFirstPassHasRunBeforeAnyTouch) {
    launch();
    EXPECT_EQ(state.leftGrabber->frame(), Rect(0, 0, 15, 667));
    EXPECT_EQ(state.rightGrabber->frame(), Rect(360, 0, 15, 667));
}

TEST_F(LaunchAssembly, EveryWindowHasItsLevel) {
    launch();
    EXPECT_EQ(state.right->windowLevel(), 2001);
    EXPECT_EQ(state.left->windowLevel(), 2001);
    EXPECT_EQ(state.rightGrabber->windowLevel(), 2000);
    EXPECT_EQ(state.leftGrabber->windowLevel(), 2000);
    EXPECT_EQ(state.darking->windowLevel(), 2001);
    EXPECT_EQ(state.social->windowLevel(), 0);
}

TEST_F(LaunchAssembly, EveryWindowMayLieOverTheLockScreen) {
    launch();
    EXPECT_TRUE(state.right->_shouldCreateContextAsSecure());
    EXPECT_TRUE(state.left->_shouldCreateContextAsSecure());
    EXPECT_TRUE(state.rightGrabber->_shouldCreateContextAsSecure());
    EXPECT_TRUE(state.leftGrabber->_shouldCreateContextAsSecure());
    EXPECT_TRUE(state.darking->_shouldCreateContextAsSecure());
    EXPECT_TRUE(state.social->_shouldCreateContextAsSecure());
}

TEST_F(LaunchAssembly, TheWindowsAreWiredToOneAnother) {
    launch();
    EXPECT_EQ(state.rightGrabber->controller(), state.right);
    EXPECT_EQ(state.leftGrabber->controller(), state.left);
    EXPECT_EQ(state.rightGrabber->darking(), state.darking);
    EXPECT_EQ(state.leftGrabber->darking(), state.darking);
    EXPECT_EQ(state.darking->rightGrabber(), state.rightGrabber);
    EXPECT_EQ(state.darking->leftGrabber(), state.leftGrabber);
    EXPECT_EQ(state.darking->alpha(), 0);
    EXPECT_FALSE(state.darking->isHidden());
    EXPECT_FALSE(state.rightGrabber->isHidden());
    EXPECT_FALSE(state.leftGrabber->isHidden());
}

TEST_F(LaunchAssembly, TheAccessorsAnswerTheWindowsAndNilBeforeLaunch) {
    launch();
    auto& spring = *host->springBoard;
    EXPECT_EQ(vela::messages::darkingWindow(spring), state.darking);
    EXPECT_EQ(vela::messages::socialWindow(spring), state.social);
    EXPECT_EQ(vela::messages::leftGrabberWindow(spring), state.leftGrabber);
    EXPECT_EQ(vela::messages::rightGrabberWindow(spring), state.rightGrabber);
    vela::moduleState() = {};
    EXPECT_EQ(vela::messages::darkingWindow(spring), nullptr);
    EXPECT_EQ(vela::messages::socialWindow(spring), nullptr);
    EXPECT_EQ(vela::messages::leftGrabberWindow(spring), nullptr);
    EXPECT_EQ(vela::messages::rightGrabberWindow(spring), nullptr);
}

TEST_F(LaunchAssembly, TheChevronSettingOfLaunchCountsAsApplied) {
    launch();
    state = {};
    preference("Alternative chevrons", true);
    host->springBoard->applicationDidFinishLaunching(host->springBoard.get());
    EXPECT_TRUE(state.lastChevrons);
    EXPECT_FALSE(state.left->grabberContainer()->isHidden()) << "the first pass had nothing to lay out";
    loop.turn();
    EXPECT_TRUE(state.left->grabberContainer()->isHidden());
}

} // namespace
