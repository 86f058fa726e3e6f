#include "tests/support/PhoneTest.h"

#include "hosts/phone/screens/HomeScreen.h"
#include "hosts/phone/screens/KeyboardWindow.h"
#include "hosts/phone/screens/LockScreen.h"
#include "platform/homescreen/SBUserAgent.h"
#include "platform/runtime/Hooking.h"
#include "platform/toolkit/views/TextInput.h"

#include <gmock/gmock.h>

using namespace toolkit;
using phone::Button;

namespace {

class Lock : public support::PhoneTest {
protected:
    void lockAndWake() {
        phone().lock();
        loop.advance(0.5);
        phone().press(Button::Lock);
        loop.advance(0.5);
    }
    bool showsLockScreen() { return isShown(find<phone::LockScreen>()); }
};

bool screenIsBlack(phone::Phone& phone) {
    const auto picture = phone.captureScreen()->reducedTo(1, 1);
    const auto pixel = picture->pixels();
    return pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0;
}

} // namespace

TEST_F(Lock, TurnsTheDisplayOffAndLocks) {
    start();
    phone().press(Button::Lock);
    EXPECT_TRUE(phone().isLocked());
    EXPECT_FALSE(phone().isDisplayOn());
    EXPECT_TRUE(homescreen::SBUserAgent::sharedUserAgent().deviceIsLocked());
    EXPECT_TRUE(WindowServer::shared().isSecureOnly());
    loop.advance(0.5);
    EXPECT_TRUE(screenIsBlack(phone()));
}

TEST_F(Lock, WakesOnTheLockScreenByTheLockButtonAndByHome) {
    start();
    for (const Button button : {Button::Lock, Button::Home}) {
        phone().lock();
        loop.advance(0.5);
        phone().press(button);
        EXPECT_TRUE(phone().isDisplayOn());
        EXPECT_TRUE(phone().isLocked());
        EXPECT_TRUE(showsLockScreen());
        EXPECT_FALSE(screenIsBlack(phone()));
    }
}

TEST_F(Lock, TellsTheLockScreensControllerOnceWithTheDisplayOffAndTheFrontKept) {
    start();
    open("com.apple.Music");
    auto& cls = *runtime::Registry::shared().find("SBLockScreenViewController");
    const runtime::Implementation before = cls.find("_handleDisplayTurnedOff");
    std::function<void(runtime::Object&)> original;
    int told = 0;
    const std::function<void(runtime::Object&)> listen = [&](runtime::Object& self) {
        ++told;
        EXPECT_FALSE(phone().isDisplayOn());
        EXPECT_TRUE(phone().isLocked());
        EXPECT_NE(phone().topDisplay(), nullptr);
        original(self);
    };
    ASSERT_TRUE(
        runtime::replaceMethod("SBLockScreenViewController", "_handleDisplayTurnedOff", listen, original));
    phone().lock();
    phone().lock(); // already off: nothing is turned off again
    cls.setMethod("_handleDisplayTurnedOff", before);
    EXPECT_EQ(told, 1);
}

TEST_F(Lock, IgnoresTouchesWhileTheDisplayIsOff) {
    start();
    phone().lock();
    loop.advance(0.5);
    drag({60, 300}, {330, 300}, 10);
    EXPECT_TRUE(phone().isLocked());
    EXPECT_FALSE(phone().isDisplayOn());
}

TEST_F(Lock, CancelsTheTouchesOnTheScreen) {
    start();
    auto* icon = find<phone::HomeIcon>();
    ASSERT_NE(icon, nullptr);
    phone().touchDown(1, screenFrame(*icon).center());
    phone().lock();
    phone().touchUp(1);
    EXPECT_EQ(phone().frontmostIdentifier(), "");
}

TEST_F(Lock, PutsTheKeyboardAway) {
    start();
    open("com.apple.mobilenotes");
    tap({180, 300});
    ASSERT_GT(phone().visibleKeyboardFrame().height, 0);
    phone().lock();
    EXPECT_EQ(phone().visibleKeyboardFrame().height, 0);
    EXPECT_EQ(TextInput::current(), nullptr);
}

TEST_F(Lock, UnlocksByASwipeToTheRight) {
    start();
    lockAndWake();
    drag({60, 400}, {330, 400}, 30);
    EXPECT_FALSE(phone().isLocked());
    loop.advance(0.5);
    EXPECT_FALSE(showsLockScreen());
    EXPECT_TRUE(isShown(find<phone::HomeScreen>()));
}

TEST_F(Lock, UnlocksByAShortFlingToTheRight) {
    start();
    lockAndWake();
    drag({60, 400}, {140, 400}, 3);
    EXPECT_FALSE(phone().isLocked());
}

TEST_F(Lock, StaysLockedAfterAShortSlowSwipeOrOneToTheLeft) {
    start();
    lockAndWake();
    drag({60, 400}, {110, 400}, 60);
    EXPECT_TRUE(phone().isLocked());
    drag({330, 400}, {60, 400}, 10);
    EXPECT_TRUE(phone().isLocked());
    loop.advance(0.5);
    EXPECT_TRUE(showsLockScreen());
}

TEST_F(Lock, UnlocksAndWakesAtOnceWhenTold) {
    start();
    phone().lock();
    phone().unlock();
    EXPECT_TRUE(phone().isDisplayOn());
    EXPECT_FALSE(phone().isLocked());
    EXPECT_FALSE(WindowServer::shared().isSecureOnly());
}

TEST_F(Lock, KeepsALockThatComesWhileTheScreenSlidesAway) {
    start();
    lockAndWake();
    phone().unlock();
    loop.advance(0.1);
    lockAndWake();
    EXPECT_TRUE(showsLockScreen());
}

TEST_F(Lock, KeepsAnApplicationOpenedMeanwhileBehindTheLockScreen) {
    start();
    lockAndWake();
    open("com.apple.mobilenotes");
    EXPECT_TRUE(phone().isLocked());
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.mobilenotes");
    tap({180, 300}); // would give the note the text focus
    EXPECT_EQ(phone().visibleKeyboardFrame().height, 0);
    phone().unlock();
    loop.advance(0.5);
    tap({180, 300});
    EXPECT_GT(phone().visibleKeyboardFrame().height, 0);
}

TEST_F(Lock, StandsInPortraitAndGivesTheApplicationItsOrientationBack) {
    start();
    open("com.apple.mobileslideshow");
    phone().rotate(DeviceOrientation::LandscapeLeft);
    ASSERT_EQ(phone().interfaceOrientation(), 3);
    lockAndWake();
    EXPECT_EQ(phone().interfaceOrientation(), 1);
    phone().unlock();
    EXPECT_EQ(phone().interfaceOrientation(), 3);
}
