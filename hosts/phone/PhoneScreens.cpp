#include "hosts/phone/PhoneScreens.h"

#include "hosts/phone/applications/InstalledApplications.h"
#include "hosts/phone/artwork/Wallpaper.h"
#include "hosts/phone/screens/ScreenController.h"
#include "platform/toolkit/windows/UIScreen.h"

using namespace toolkit;

namespace phone {

namespace {

std::shared_ptr<SystemWindow> makeWindow(double level, WindowSecurity security, std::shared_ptr<UIView> view,
                                         unsigned orientations) {
    auto window = std::make_shared<SystemWindow>(level, security);
    window->setRootViewController(std::make_shared<ScreenController>(std::move(view), orientations));
    return window;
}

/// A phone's home screen and lock screen stand in portrait only; a tablet's need a picture for both ways.
Size wallpaperSize(bool tablet) {
    const Size screen = UIScreen::mainScreen().bounds().size();
    const double side = std::max(screen.width, screen.height);
    return tablet ? Size{side, side} : screen;
}

} // namespace

PhoneScreens::PhoneScreens(const ApplicationStage& stage, WallClock& clock, bool tablet,
                           PhoneScreenActions actions) {
    const auto wallpaper = drawWallpaper(wallpaperSize(tablet), UIScreen::mainScreen().scale());
    makeHome(stage, clock, tablet, wallpaper, actions.open);
    switcherWindow = std::make_shared<SwitcherWindow>(wallpaper, std::move(actions.choose));
    makeLock(clock, wallpaper, std::move(actions.unlock));
    makeOverlays(clock, std::move(actions.keyboardFrameChanged));
    fitScreen();
}

void PhoneScreens::makeHome(const ApplicationStage& stage, WallClock& clock, bool tablet,
                            const std::shared_ptr<const Image>& wallpaper,
                            const std::function<void(const std::string&)>& open) {
    const Size size = iconSize(tablet);
    homeScreen = std::make_shared<HomeScreen>(wallpaper, size, clock);
    for (const auto& application : stage.applications()) {
        auto icon =
            std::make_shared<HomeIcon>(application->bundleIdentifier(), application->displayName(),
                                       applications::drawIcon(application->description().entry.icon,
                                                              size.width, UIScreen::mainScreen().scale()),
                                       [open](HomeIcon& tapped) { open(tapped.bundleIdentifier()); });
        if (liesInDock(*application))
            homeScreen->addDockIcon(std::move(icon));
        else
            homeScreen->addPageIcon(std::move(icon));
    }
    homeWindow = makeWindow(levels::home, WindowSecurity::BehindLockScreen, homeScreen,
                            tablet ? orientationMaskAll : orientationMaskPortrait);
    homeWindow->setHidden(false);
}

void PhoneScreens::makeLock(WallClock& clock, const std::shared_ptr<const Image>& wallpaper,
                            std::function<void()> unlock) {
    lockScreen = std::make_shared<LockScreen>(wallpaper, clock, std::move(unlock));
    lockScreenController = std::make_shared<homescreen::SBLockScreenViewController>();
    lockScreenController->setView(lockScreen);
    lockWindow = std::make_shared<SystemWindow>(levels::lockScreen, WindowSecurity::OverLockScreen);
    lockWindow->setRootViewController(lockScreenController);
}

void PhoneScreens::makeOverlays(WallClock& clock, std::function<void(Rect)> keyboardFrameChanged) {
    statusBar = std::make_shared<StatusBar>(clock);
    statusBarWindow =
        makeWindow(levels::statusBar, WindowSecurity::BehindLockScreen, statusBar, orientationMaskAll);
    statusBarWindow->setUserInteractionEnabled(false);
    statusBarWindow->setHidden(false);
    keyboardWindow = std::make_shared<KeyboardWindow>(std::move(keyboardFrameChanged));
    volumeDisplay = std::make_shared<VolumeDisplay>();
    volumeWindow = std::make_shared<VolumeWindow>();
    displayOffWindow = std::make_shared<SystemWindow>(levels::displayOff, WindowSecurity::OverLockScreen);
    displayOffWindow->setBackgroundColor(Color::black());
}

void PhoneScreens::fitScreen() {
    const Rect screen = UIScreen::mainScreen().bounds();
    statusBarWindow->setFrame({0, 0, screen.width, StatusBar::height});
    for (const auto& window : {homeWindow, lockWindow, displayOffWindow})
        window->fitScreen();
    switcherWindow->fitScreen();
    keyboardWindow->fitScreen();
    volumeWindow->fitScreen();
}

Rect PhoneScreens::iconFrame(const std::string& bundleIdentifier) const {
    homeWindow->layoutIfNeeded();
    if (const HomeIcon* icon = homeScreen->icon(bundleIdentifier))
        return icon->pictureOnScreen();
    return Rect(UIScreen::mainScreen().bounds().center(), {}).insetBy(-30, -30);
}

} // namespace phone
