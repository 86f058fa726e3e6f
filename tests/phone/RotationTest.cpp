#include "tests/support/PhoneTest.h"

#include "hosts/phone/InterfaceOrientation.h"
#include "platform/homescreen/SBApplication.h"
#include "platform/toolkit/views/UIViewController.h"

using namespace toolkit;
using phone::Button;

namespace {

class Rotation : public support::PhoneTest {
protected:
    std::int64_t after(DeviceOrientation orientation) {
        phone().rotate(orientation);
        loop.advance(0.5);
        return phone().interfaceOrientation();
    }
};

constexpr auto portrait = DeviceOrientation::Portrait;
constexpr auto upsideDown = DeviceOrientation::PortraitUpsideDown;
constexpr auto left = DeviceOrientation::LandscapeLeft;
constexpr auto right = DeviceOrientation::LandscapeRight;

} // namespace

TEST(InterfaceOrientation, FollowsTheDeviceWhereThatIsSupported) {
    EXPECT_EQ(phone::chooseInterfaceOrientation(left, 1, orientationMaskAll), 3);
    EXPECT_EQ(phone::chooseInterfaceOrientation(upsideDown, 1, orientationMaskAll), 2);
    EXPECT_EQ(phone::chooseInterfaceOrientation(upsideDown, 4, orientationMaskAllButUpsideDown), 4);
}

TEST(InterfaceOrientation, StaysWithoutAnOrientationOfTheDevice) {
    for (const auto flat :
         {DeviceOrientation::Unknown, DeviceOrientation::FaceUp, DeviceOrientation::FaceDown}) {
        EXPECT_EQ(phone::chooseInterfaceOrientation(flat, 4, orientationMaskAll), 4);
        EXPECT_EQ(phone::chooseInterfaceOrientation(flat, 4, orientationMaskPortrait), 1);
    }
}

TEST_F(Rotation, TurnsAnApplicationThatSupportsIt) {
    start();
    open("com.apple.mobileslideshow");
    EXPECT_EQ(after(left), 3);
    EXPECT_EQ(screenSize(), (Size{667, 375}));
    EXPECT_EQ(WindowServer::shared().keyWindow()->frame(), (Rect{0, 0, 667, 375}));
    EXPECT_EQ(WindowServer::shared().keyWindow()->rootViewController()->view()->frame(),
              (Rect{0, 0, 667, 375}));
    EXPECT_EQ(after(right), 4);
    EXPECT_EQ(screenSize(), (Size{667, 375}));
    EXPECT_EQ(after(portrait), 1);
    EXPECT_EQ(screenSize(), (Size{375, 667}));
}

TEST_F(Rotation, LeavesAPortraitApplicationAndThePhonesHomeScreenUpright) {
    start();
    EXPECT_EQ(after(left), 1);
    phone().rotate(portrait);
    open("com.apple.mobiletimer");
    EXPECT_EQ(after(right), 1);
    EXPECT_EQ(phone().deviceOrientation(), right);
    EXPECT_EQ(WindowServer::shared().keyWindow()->rootViewController()->supportedInterfaceOrientations(),
              orientationMaskPortrait);
}

TEST_F(Rotation, StaysWhenTheDeviceLiesOnATableOrStandsOnItsHead) {
    start();
    open("com.apple.mobileslideshow");
    EXPECT_EQ(after(left), 3);
    EXPECT_EQ(after(DeviceOrientation::FaceUp), 3);
    EXPECT_EQ(after(DeviceOrientation::FaceDown), 3);
    EXPECT_EQ(after(DeviceOrientation::Unknown), 3);
    EXPECT_EQ(after(upsideDown), 3);
}

TEST_F(Rotation, LooksAtTheDeviceAgainWhenAnApplicationOpensOrCloses) {
    start();
    phone().rotate(left);
    EXPECT_EQ(phone().interfaceOrientation(), 1);
    open("com.apple.mobileslideshow");
    EXPECT_EQ(phone().interfaceOrientation(), 3);
    open("com.apple.mobiletimer");
    EXPECT_EQ(phone().interfaceOrientation(), 1);
    EXPECT_EQ(WindowServer::shared().keyWindow()->frame(), (Rect{0, 0, 375, 667}));
    open("com.apple.mobileslideshow");
    phone().press(Button::Home);
    EXPECT_EQ(phone().interfaceOrientation(), 1);
    EXPECT_EQ(screenSize(), (Size{375, 667}));
}

TEST_F(Rotation, TellsTheOrientationOfWhatIsInFront) {
    start();
    open("com.apple.mobileslideshow");
    after(right);
    const auto application = std::dynamic_pointer_cast<homescreen::SBApplication>(
        phone().springBoard()._accessibilityTopDisplay());
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(application->statusBarOrientation(), 4);
    EXPECT_EQ(phone().springBoard().statusBarOrientation(), 4);
    EXPECT_EQ(phone().springBoard()._frontMostAppOrientation(), 4);
    phone().press(Button::Home);
    EXPECT_EQ(phone().springBoard().statusBarOrientation(), 1);
}

TEST_F(Rotation, TurnsATabletsHomeScreenEveryWay) {
    startTablet();
    EXPECT_EQ(after(left), 3);
    EXPECT_EQ(screenSize(), (Size{1024, 768}));
    EXPECT_EQ(WindowServer::shared().keyWindow()->frame(), (Rect{0, 0, 1024, 768}));
    EXPECT_EQ(after(upsideDown), 2);
    EXPECT_EQ(screenSize(), (Size{768, 1024}));
}

TEST_F(Rotation, TellsTheControllersOfAllWindows) {
    class Listener : public UIViewController {
    public:
        Size told;
        void viewWillTransitionToSize(Size size, TransitionCoordinator& coordinator) override {
            UIViewController::viewWillTransitionToSize(size, coordinator);
            told = size;
        }
    };
    start();
    UIWindow window({0, 0, 100, 100});
    auto listener = std::make_shared<Listener>();
    window.setRootViewController(listener);
    open("com.apple.mobileslideshow");
    after(left);
    EXPECT_EQ(listener->told, (Size{667, 375}));
}

TEST_F(Rotation, CancelsTheTouchesOfTheOldScreen) {
    start();
    open("com.apple.mobilenotes");
    phone().touchDown(1, {180, 300});
    phone().rotate(left);
    phone().touchUp(1);
    EXPECT_EQ(phone().visibleKeyboardFrame().height, 0);
}
