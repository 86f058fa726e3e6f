// The simulated phone: its buttons, sensors and screens, and the home-screen process's host.
//
// Everything that a hand can do to the phone is a method here; window, script and tests use nothing else.
// Everything the phone shows is made of the toolkit's windows and views. Main thread only. One per process.
// Coordinates are points of the screen as the interface now stands.
#pragma once

#include "hosts/media/MusicLibrary.h"
#include "hosts/media/PlaybackEngine.h"
#include "hosts/phone/OutsideWorld.h"
#include "platform/homescreen/HostPort.h"
#include "platform/homescreen/SpringBoard.h"
#include "platform/toolkit/windows/UIDevice.h"

#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace phone {

class PhoneMediaPort;

enum class Button { Home, HomeDouble, Lock, VolumeUp, VolumeDown };

struct PhoneConfiguration {
    toolkit::Size screenSize{375, 667}; // points, in portrait
    double screenScale = 2;             // pixels a point
    std::string model = "iPhone";       // or "iPad": a tablet's home screen rotates
    std::string systemVersion = "9.3";
    /// The time of day, in seconds since 1970, UTC. Without one the phone starts at 9:41 on a spring morning
    /// and follows the run loop, so that every run shows the same.
    std::function<std::time_t()> wallClock;
    long secondsFromUtc = 0; // of the phone's time zone, positive to the east
    /// Called when the settings are opened by their icon, for whoever shows more of them than the phone does.
    /// May be empty.
    std::function<void()> settingsOpened;
    /// For messages and pages that are opened outside the phone.
    OutsideWorld outside;
    /// What makes music sound; without one playing is silent, and time passes on the run loop's clock.
    std::shared_ptr<playback::PlaybackEngine> playbackEngine;
    /// The phone's songs; null for a phone without any.
    std::shared_ptr<playback::MusicLibrary> musicLibrary;
};

class Phone final : public homescreen::HostPort {
public:
    /// There must be a main run loop and a device root. Sets the process's identity (bundle identifier
    /// "com.apple.springboard", system version, model), the screen and the current host port.
    explicit Phone(PhoneConfiguration configuration);
    ~Phone() override;

    /// Launches the home screen: extensions are to be loaded before.
    void launch();

    // What a hand does.
    void press(Button button);
    /// Brings an application to the front; false when there is none of that identifier. On a locked phone it
    /// waits behind the lock screen.
    bool openApplication(const std::string& bundleIdentifier);
    void rotate(toolkit::DeviceOrientation orientation);
    void lock();
    void unlock();
    /// Shows or hides the on-screen keyboard, whatever has the text focus.
    void setKeyboardShown(bool shown);
    void touchDown(std::int64_t identifier, toolkit::Point point);
    void touchMove(std::int64_t identifier, toolkit::Point point);
    void touchUp(std::int64_t identifier);
    void touchCancel(std::int64_t identifier);
    /// Text from a real keyboard goes to whatever has the text focus.
    void typeText(const std::string& text);
    void typeBackspace();

    // What there is to see.
    bool isLocked() const;
    bool isDisplayOn() const;
    /// Identifier of the application in front; empty on the home screen.
    std::string frontmostIdentifier() const;
    std::int64_t interfaceOrientation() const;
    toolkit::DeviceOrientation deviceOrientation() const;
    std::vector<std::string> applicationIdentifiers() const;
    /// Volume displays shown since the start.
    int hudCount() const;
    /// Addresses that were to be opened outside the phone since the start.
    const std::vector<std::string>& openedAddresses() const;
    homescreen::SpringBoard& springBoard() const;
    /// The phone's library and player.
    PhoneMediaPort& music() const;

    // What the home screen's classes ask.
    void finishLaunching() override;
    std::int64_t statusBarOrientation() const override;
    std::int64_t frontMostAppOrientation() const override;
    std::shared_ptr<runtime::Object> topDisplay() const override;
    bool isDeviceLocked() const override;
    toolkit::Rect visibleKeyboardFrame() const override;
    bool pressHome() override;
    bool pressHomeTwice() override;
    void displayTurnedOff() override;
    void presentHud(const std::shared_ptr<toolkit::UIView>& view, double delay) override;
    std::optional<std::string> displayName(const std::string& bundleIdentifier) const override;
    toolkit::Size defaultIconImageSize() const override;
    std::shared_ptr<const toolkit::Image> captureScreen() override;

private:
    void tapIcon(const std::string& bundleIdentifier);

    struct State;
    std::unique_ptr<State> state_;
};

} // namespace phone
