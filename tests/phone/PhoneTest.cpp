#include "tests/support/PhoneTest.h"

#include "hosts/phone/screens/HomeScreen.h"
#include "hosts/phone/screens/VolumeDisplay.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/homescreen/SBApplication.h"
#include "platform/homescreen/SBApplicationController.h"
#include "platform/homescreen/SBHUDController.h"
#include "platform/homescreen/SBIconView.h"
#include "platform/runtime/Hooking.h"

#include <gmock/gmock.h>

using namespace toolkit;
using phone::Button;

namespace {

using Phone = support::PhoneTest;

UIWindow* keyWindow() {
    return WindowServer::shared().keyWindow();
}

} // namespace

TEST_F(Phone, StartsOnTheHomeScreenAwakeAndUnlocked) {
    start();
    EXPECT_EQ(phone().frontmostIdentifier(), "");
    EXPECT_TRUE(phone().isDisplayOn());
    EXPECT_FALSE(phone().isLocked());
    EXPECT_EQ(phone().interfaceOrientation(), 1);
    EXPECT_EQ(phone().springBoard()._accessibilityTopDisplay(), nullptr);
    ASSERT_NE(keyWindow(), nullptr);
    EXPECT_EQ(keyWindow()->windowLevel(), 0);
}

TEST_F(Phone, AnnouncesTheHomeScreensIdentityAndTheSystemVersion) {
    phone::PhoneConfiguration configuration;
    configuration.systemVersion = "10.1.1";
    configuration.model = "iPad";
    start(configuration);
    EXPECT_EQ(foundation::ProcessInfo::shared().mainBundleIdentifier, "com.apple.springboard");
    EXPECT_EQ(foundation::ProcessInfo::shared().systemVersion, "10.1.1");
    EXPECT_EQ(UIDevice::currentDevice().model(), "iPad");
}

TEST_F(Phone, BringsEveryInstalledApplicationToTheFront) {
    start();
    EXPECT_THAT(phone().applicationIdentifiers(),
                testing::IsSupersetOf({"com.apple.mobileslideshow", "com.apple.mobilenotes",
                                       "com.apple.mobiletimer", "com.apple.Music", "com.apple.Preferences"}));
    for (const auto& identifier : phone().applicationIdentifiers()) {
        open(identifier);
        EXPECT_EQ(phone().frontmostIdentifier(), identifier);
        const auto top = std::dynamic_pointer_cast<homescreen::SBApplication>(
            phone().springBoard()._accessibilityTopDisplay());
        ASSERT_NE(top, nullptr);
        EXPECT_EQ(top->bundleIdentifier(), identifier);
    }
}

TEST_F(Phone, RefusesAnApplicationThatIsNotInstalled) {
    start();
    EXPECT_FALSE(phone().openApplication("org.example.nothing"));
    EXPECT_FALSE(phone().openApplication(""));
    EXPECT_EQ(phone().frontmostIdentifier(), "");
}

TEST_F(Phone, GivesTheKeyWindowToWhatIsInFront) {
    start();
    UIWindow* home = keyWindow();
    open("com.apple.Music");
    UIWindow* music = keyWindow();
    EXPECT_NE(music, home);
    EXPECT_GT(music->shownOrder(), home->shownOrder());
    open("com.apple.Preferences");
    EXPECT_NE(keyWindow(), music);
    EXPECT_TRUE(music->isHidden());
    phone().press(Button::Home);
    EXPECT_EQ(keyWindow(), home);
}

TEST_F(Phone, LeavesAnApplicationInAThirdOfASecondAtThePressOfHome) {
    start();
    open("com.apple.Music");
    UIWindow* music = keyWindow();
    phone().press(Button::Home);
    EXPECT_EQ(phone().frontmostIdentifier(), "");
    loop.advance(0.2);
    EXPECT_FALSE(music->isHidden());
    loop.advance(0.2);
    EXPECT_TRUE(music->isHidden());
}

TEST_F(Phone, KeepsAnApplicationThatIsOpenedAgainWhileItLeaves) {
    start();
    open("com.apple.Music");
    phone().press(Button::Home);
    loop.advance(0.1);
    open("com.apple.Music");
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Music");
    EXPECT_TRUE(isShown(keyWindow()));
    EXPECT_TRUE(keyWindow()->transform().isIdentity());
}

TEST_F(Phone, DoesNothingOfItselfAtHomeOnTheHomeScreen) {
    start();
    EXPECT_FALSE(phone().pressHome());
    open("com.apple.Music");
    EXPECT_TRUE(phone().pressHome());
}

TEST_F(Phone, LetsAnExtensionTakeTheHomeButton) {
    start();
    open("com.apple.Music");
    auto& cls = *runtime::Registry::shared().find("SBUIController");
    const runtime::Implementation before = cls.find("clickedMenuButton");
    std::function<bool(runtime::Object&)> original;
    ASSERT_TRUE(runtime::replaceMethod<bool>(
        "SBUIController", "clickedMenuButton",
        std::function<bool(runtime::Object&)>([](auto&) { return true; }), original));
    phone().press(Button::Home);
    cls.setMethod("clickedMenuButton", before);
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Music");
}

TEST_F(Phone, KnowsItsApplicationsNamesAndItsIconsSize) {
    start();
    const auto& controller = homescreen::SBApplicationController::sharedInstance();
    EXPECT_EQ(controller.displayName("com.apple.mobileslideshow"), "Photos");
    EXPECT_EQ(controller.displayName("org.example.nothing"), std::nullopt);
    const auto photos = controller.applicationWithBundleIdentifier("com.apple.mobileslideshow");
    ASSERT_NE(photos, nullptr);
    EXPECT_EQ(photos->displayName(), "Photos");
    EXPECT_EQ(controller.applicationWithBundleIdentifier("org.example.nothing"), nullptr);
    EXPECT_EQ(homescreen::SBIconView::defaultIconImageSize(), (Size{60, 60}));
    startTablet();
    EXPECT_EQ(homescreen::SBIconView::defaultIconImageSize(), (Size{76, 76}));
}

TEST_F(Phone, ShowsTheVolumeDisplayForASecondAndAHalf) {
    start();
    phone().press(Button::VolumeUp);
    EXPECT_EQ(phone().hudCount(), 1);
    auto* display = find<phone::VolumeDisplay>();
    ASSERT_NE(display, nullptr);
    loop.advance(1.4);
    EXPECT_TRUE(isShown(display));
    EXPECT_EQ(screenFrame(*display).center(), (Point{187.5, 333.5}));
    loop.advance(0.5);
    EXPECT_FALSE(isShown(display));
}

TEST_F(Phone, KeepsTheVolumeDisplayWhileTheButtonsArePressed) {
    start();
    for (int i = 0; i < 3; ++i) {
        phone().press(Button::VolumeDown);
        loop.advance(1);
    }
    EXPECT_EQ(phone().hudCount(), 3);
    EXPECT_TRUE(isShown(find<phone::VolumeDisplay>()));
}

TEST_F(Phone, ShowsNoVolumeDisplayThatAnExtensionHoldsBack) {
    start();
    auto& cls = *runtime::Registry::shared().find("SBHUDController");
    const runtime::Implementation before = cls.find("presentHUDView:autoDismissWithDelay:");
    std::function<void(runtime::Object&, std::shared_ptr<UIView>, double)> original;
    const std::function<void(runtime::Object&, std::shared_ptr<UIView>, double)> holdBack = [](auto&, auto,
                                                                                               double) {};
    ASSERT_TRUE(runtime::replaceMethod("SBHUDController", "presentHUDView:autoDismissWithDelay:", holdBack,
                                       original));
    phone().press(Button::VolumeUp);
    cls.setMethod("presentHUDView:autoDismissWithDelay:", before);
    EXPECT_EQ(phone().hudCount(), 0);
    EXPECT_EQ(find<phone::VolumeDisplay>(), nullptr);
}

TEST_F(Phone, CapturesWhatTheScreenShows) {
    start();
    const auto home = phone().captureScreen();
    ASSERT_NE(home, nullptr);
    EXPECT_EQ(home->pixelWidth(), 750);
    EXPECT_EQ(home->pixelHeight(), 1334);
    open("com.apple.mobiletimer");
    const auto clock = phone().captureScreen();
    const auto mean = [](const Image& image) { return image.reducedTo(1, 1)->pixels()[1]; };
    EXPECT_GT(mean(*home), mean(*clock) + 30); // the clock is dark
    open("com.apple.mobileslideshow");
    EXPECT_GT(mean(*phone().captureScreen()), 150); // the photos are bright
}
