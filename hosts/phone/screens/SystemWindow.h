// A window of the phone itself: home screen, application, status bar, keyboard, lock screen and the like.
#pragma once

#include "platform/toolkit/windows/UIWindow.h"

namespace phone {

/// Whether a window may lie over the lock screen.
enum class WindowSecurity { BehindLockScreen, OverLockScreen };

class SystemWindow : public toolkit::UIWindow {
    RUNTIME_CLASS()
public:
    SystemWindow(double level, WindowSecurity security);

    bool _shouldCreateContextAsSecure() const override { return security_ == WindowSecurity::OverLockScreen; }
    /// Covers the whole screen as it now stands.
    void fitScreen();

private:
    WindowSecurity security_;
};

namespace levels {
inline constexpr double home = 0;
inline constexpr double application = 0;
inline constexpr double switcher = 500;
inline constexpr double presented = 600;
inline constexpr double statusBar = 1000;
inline constexpr double lockScreen = 1050;
inline constexpr double keyboard = 1100;
inline constexpr double volumeDisplay = 1999;
inline constexpr double displayOff = 5000;
} // namespace levels

} // namespace phone
