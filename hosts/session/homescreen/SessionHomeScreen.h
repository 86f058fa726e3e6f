// The session as the home screen's classes see it: the host port of a real Linux session.
//
// What a phone knows by itself the session's services tell: the application in front and the outputs the
// compositor, the lock the login manager, the keyboard and the way the device is held their own services. A
// service that is missing means that nothing of its kind happens. Main thread only; one per process, never
// torn down.
#pragma once

#include "hosts/desktop/DesktopEntries.h"
#include "hosts/session/homescreen/LoginSession.h"
#include "hosts/session/homescreen/OnScreenKeyboard.h"
#include "hosts/session/homescreen/OrientationSensor.h"
#include "hosts/session/wayland/Output.h"
#include "platform/homescreen/HostPort.h"
#include "platform/homescreen/SBApplication.h"
#include "platform/homescreen/SBLockScreenViewController.h"
#include "platform/homescreen/SpringBoard.h"
#include "platform/toolkit/windows/UIWindow.h"

namespace session {

class SessionHomeScreen final : public homescreen::HostPort {
public:
    struct Configuration {
        std::string model = "iPhone";
        std::string systemVersion = "9.3";
        /// What the screen shows now; null when it cannot be told.
        std::function<std::shared_ptr<const toolkit::Image>()> capture;
        /// Called before the screen takes another size; `turning` says that it does so because it turns.
        std::function<void(bool turning)> resizing;
        /// Called when mayBeSeen() has changed.
        std::function<void()> mayBeSeenChanged;
        /// The name of an application that plays music but has no desktop entry; nothing for any other.
        std::function<std::optional<std::string>(const std::string& bundleIdentifier)> playerName;
    };
    /// There must be a main run loop. Sets the process's identity and the current host port.
    SessionHomeScreen(bus::Bus& session, bus::Bus& system, Configuration configuration);

    /// Launches the home screen: extensions are to be loaded before, and the output told.
    void launch();

    /// The output that everything is shown on, drawn with `scale` pixels each point; null while there is
    /// none, which is a display that is off.
    void setOutput(const Output* output, double scale);
    /// What the window in front says that its application is called; empty for none.
    void setFront(const std::string& window);
    bool isLocked() const { return login_.isLocked(); }
    std::int64_t interfaceOrientation() const { return orientation_; }
    bool isDisplayOn() const { return displayOn_; }
    /// Whether anything of the product's may be on the screen now.
    bool mayBeSeen() const { return displayOn_ && !isLocked(); }
    homescreen::SpringBoard& springBoard() { return *springBoard_; }

    void finishLaunching() override;
    std::int64_t statusBarOrientation() const override { return orientation_; }
    std::int64_t frontMostAppOrientation() const override { return orientation_; }
    std::shared_ptr<runtime::Object> topDisplay() const override { return front_; }
    bool isDeviceLocked() const override { return isLocked(); }
    toolkit::Rect visibleKeyboardFrame() const override;
    bool pressHome() override { return false; }
    bool pressHomeTwice() override { return false; }
    void displayTurnedOff() override;
    void presentHud(const std::shared_ptr<toolkit::UIView>&, double) override {}
    std::optional<std::string> displayName(const std::string& bundleIdentifier) const override;
    toolkit::Size defaultIconImageSize() const override { return {60, 60}; }
    std::shared_ptr<const toolkit::Image> captureScreen() override { return configuration_.capture(); }

private:
    void loginHasChanged();
    void followOutput();
    void followPower();
    void layOut();
    void setScreen(toolkit::Size size);
    bool isOutputOn() const;
    void tellWhetherSeen();
    std::shared_ptr<homescreen::SBApplication> applicationInFront(const std::string& window) const;

    Configuration configuration_;
    desktop::DesktopEntries entries_;
    std::shared_ptr<homescreen::SpringBoard> springBoard_;
    std::shared_ptr<homescreen::SBLockScreenViewController> lockScreen_;
    std::shared_ptr<toolkit::UIWindow> keyWindow_; // empty; gestures are read in its coordinates
    std::shared_ptr<homescreen::SBApplication> front_;
    const Output* output_ = nullptr;
    double scale_ = 1;
    std::int64_t orientation_ = 1;
    bool displayOn_ = false;
    bool locked_ = false; // as last told
    bool seen_ = false;   // mayBeSeen() as it was told last
    LoginSession login_;
    OnScreenKeyboard keyboard_;
    OrientationSensor sensor_;
};

} // namespace session
