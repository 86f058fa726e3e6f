// The root view controller of each of the product's windows: lays the window out for its type.
#pragma once

#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <cstdint>

namespace vela {

class ViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// Which window a controller lays out.
    enum Type : std::int64_t {
        LeftPanel = 0,
        RightPanel = 1,
        LeftGrabber = 2,
        RightGrabber = 3,
        Sharing = 4,
        Dimming = 5,
    };

    /// initForType:
    explicit ViewController(std::int64_t type) : type_(type) {}

    std::int64_t type() const { return type_; }
    toolkit::UIWindow* window() const { return window_.get(); }
    /// The window owns this controller, and so is not owned by it.
    void setWindow(toolkit::UIWindow* window) { window_ = window; }

    /// The screen rectangle as it would be in that orientation.
    toolkit::Rect getScreenFrameByOrientation(std::int64_t orientation) const;
    /// Puts the window where its type belongs, closed, for the way the device is held and the settings of
    /// now.
    void refresh();

    bool shouldAutorotate() const override { return true; }
    unsigned supportedInterfaceOrientations() const override;
    void viewWillTransitionToSize(toolkit::Size size, toolkit::TransitionCoordinator& coordinator) override;

private:
    std::int64_t type_;
    runtime::WeakPtr<toolkit::UIWindow> window_;
};

} // namespace vela
