// The sharing window: an empty place for sheets to stand in, shown at level 0 and out of the way of touches.
#pragma once

#include "platform/toolkit/windows/UIWindow.h"
#include "vela/startup/ViewController.h"

namespace vela {

class socialWindow : public toolkit::UIWindow {
    RUNTIME_CLASS()
public:
    explicit socialWindow(toolkit::Rect frame = {});

    const std::shared_ptr<ViewController>& controller() const { return controller_; }
    bool _shouldCreateContextAsSecure() const override { return true; }

private:
    std::shared_ptr<ViewController> controller_;
};

} // namespace vela
