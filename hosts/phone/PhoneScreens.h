// The windows of the phone itself, from the home screen to the switched-off display. Applications' windows
// are the ApplicationStage's.
#pragma once

#include "hosts/phone/SwitcherWindow.h"
#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/ApplicationStage.h"
#include "hosts/phone/screens/HomeScreen.h"
#include "hosts/phone/screens/KeyboardWindow.h"
#include "hosts/phone/screens/LockScreen.h"
#include "hosts/phone/screens/StatusBar.h"
#include "hosts/phone/screens/VolumeDisplay.h"
#include "hosts/phone/screens/VolumeWindow.h"
#include "platform/homescreen/SBLockScreenViewController.h"

namespace phone {

/// What the screens ask of the phone.
struct PhoneScreenActions {
    std::function<void(const std::string& bundleIdentifier)> open;
    /// A choice in the switcher; empty to leave everything as it was.
    std::function<void(const std::string& bundleIdentifier)> choose;
    std::function<void()> unlock;
    std::function<void(toolkit::Rect)> keyboardFrameChanged;
};

struct PhoneScreens {
    PhoneScreens(const ApplicationStage& stage, WallClock& clock, bool tablet, PhoneScreenActions actions);

    /// Lays everything out over the screen as it now stands.
    void fitScreen();
    /// Where an application grows from and shrinks to: its icon, or the screen's middle.
    toolkit::Rect iconFrame(const std::string& bundleIdentifier) const;

    static toolkit::Size iconSize(bool tablet) {
        return tablet ? toolkit::Size{76, 76} : toolkit::Size{60, 60};
    }

    std::shared_ptr<HomeScreen> homeScreen;
    std::shared_ptr<StatusBar> statusBar;
    std::shared_ptr<LockScreen> lockScreen;
    std::shared_ptr<homescreen::SBLockScreenViewController> lockScreenController;
    std::shared_ptr<VolumeDisplay> volumeDisplay;
    std::shared_ptr<SystemWindow> homeWindow;
    std::shared_ptr<SystemWindow> statusBarWindow;
    std::shared_ptr<SystemWindow> lockWindow;
    std::shared_ptr<KeyboardWindow> keyboardWindow;
    std::shared_ptr<SwitcherWindow> switcherWindow;
    std::shared_ptr<VolumeWindow> volumeWindow;
    std::shared_ptr<SystemWindow> displayOffWindow;

private:
    void makeHome(const ApplicationStage& stage, WallClock& clock, bool tablet,
                  const std::shared_ptr<const toolkit::Image>& wallpaper,
                  const std::function<void(const std::string&)>& open);
    void makeLock(WallClock& clock, const std::shared_ptr<const toolkit::Image>& wallpaper,
                  std::function<void()> unlock);
    void makeOverlays(WallClock& clock, std::function<void(toolkit::Rect)> keyboardFrameChanged);
};

} // namespace phone
