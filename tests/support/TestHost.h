// A host whose every answer a test can set: a phone without screens of its own.
#pragma once

#include "platform/foundation/VirtualRunLoop.h"
#include "platform/homescreen/HostPort.h"
#include "platform/homescreen/SBApplication.h"
#include "platform/homescreen/SpringBoard.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <filesystem>
#include <map>

namespace tests {

class TestHost final : public homescreen::HostPort {
public:
    TestHost();
    ~TestHost() override;

    std::int64_t statusBar = 1;
    std::int64_t frontOrientation = 1;
    std::shared_ptr<runtime::Object> top;
    bool locked = false;
    toolkit::Rect keyboard;
    std::shared_ptr<const toolkit::Image> screen;
    int captures = 0;
    int homePresses = 0;
    int doublePresses = 0;
    int displayOffs = 0;
    int huds = 0;
    std::shared_ptr<toolkit::UIView> hudView; // of the last display
    double hudDelay = 0;
    int launches = 0;
    std::map<std::string, std::string> displayNames{{"com.apple.Music", "Music"}}; // of what is installed
    /// Called inside the host's own launch.
    std::function<void()> duringLaunch;
    /// Called while the host turns its display off.
    std::function<void()> duringDisplayOff;

    /// The host's own front window and application object.
    std::shared_ptr<toolkit::UIWindow> window;
    std::shared_ptr<homescreen::SpringBoard> springBoard;

    void finishLaunching() override;
    std::int64_t statusBarOrientation() const override { return statusBar; }
    std::int64_t frontMostAppOrientation() const override { return frontOrientation; }
    std::shared_ptr<runtime::Object> topDisplay() const override { return top; }
    bool isDeviceLocked() const override { return locked; }
    toolkit::Rect visibleKeyboardFrame() const override { return keyboard; }
    bool pressHome() override { return ++homePresses > 0; }
    bool pressHomeTwice() override { return ++doublePresses > 0; }
    void displayTurnedOff() override;
    void presentHud(const std::shared_ptr<toolkit::UIView>& view, double delay) override {
        ++huds;
        hudView = view;
        hudDelay = delay;
    }
    std::optional<std::string> displayName(const std::string& bundleIdentifier) const override {
        const auto found = displayNames.find(bundleIdentifier);
        return found == displayNames.end() ? std::nullopt : std::optional(found->second);
    }
    toolkit::Size defaultIconImageSize() const override { return {60, 60}; }
    std::shared_ptr<const toolkit::Image> captureScreen() override {
        ++captures;
        return screen;
    }
};

/// A picture of one grey, for screens.
std::shared_ptr<const toolkit::Image> greyImage(std::uint8_t value, int width = 4, int height = 4);

} // namespace tests
