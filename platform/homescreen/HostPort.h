// What a host answers for the home screen's classes: the one interface between them and the world.
//
// The host owns its port, sets it before the application object launches and keeps it until the process ends.
// Every call is made on the main thread. Rectangles are in points of the screen as the interface now stands.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/rendering/Image.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace toolkit {
class UIView;
}

namespace homescreen {

class HostPort {
public:
    /// The process's port, or null before a host has set one.
    static HostPort* current();
    static void setCurrent(HostPort* port);

    virtual ~HostPort() = default;

    /// The host's own launch: afterwards its home screen stands.
    virtual void finishLaunching() = 0;

    /// Interface orientation (1 to 4) of the home-screen process's own status bar.
    virtual std::int64_t statusBarOrientation() const = 0;
    /// Interface orientation of whatever is in front, the home screen included.
    virtual std::int64_t frontMostAppOrientation() const = 0;
    /// The application in front, null on the home screen. Usually an SBApplication.
    virtual std::shared_ptr<runtime::Object> topDisplay() const = 0;
    virtual bool isDeviceLocked() const = 0;
    /// The on-screen keyboard's frame; height 0 while it is not showing.
    virtual toolkit::Rect visibleKeyboardFrame() const = 0;

    /// What the Home button does of itself; answers whether it did something.
    virtual bool pressHome() = 0;
    virtual bool pressHomeTwice() = 0;
    /// What follows of itself when the display has been turned off.
    virtual void displayTurnedOff() = 0;
    /// Shows a volume display for `delay` seconds.
    virtual void presentHud(const std::shared_ptr<toolkit::UIView>& view, double delay) = 0;

    /// The name under an application's icon; nothing for one that is not installed.
    virtual std::optional<std::string> displayName(const std::string& bundleIdentifier) const = 0;
    /// Size of a home-screen icon's picture.
    virtual toolkit::Size defaultIconImageSize() const = 0;
    /// What the screen shows now.
    virtual std::shared_ptr<const toolkit::Image> captureScreen() = 0;
};

} // namespace homescreen
