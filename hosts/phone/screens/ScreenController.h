// The root controller of a window of the phone: its view, and the orientations that it can stand in.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

namespace phone {

class ScreenController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    ScreenController(std::shared_ptr<toolkit::UIView> view, unsigned supportedOrientations);

    unsigned supportedInterfaceOrientations() const override { return supportedOrientations_; }

private:
    unsigned supportedOrientations_;
};

} // namespace phone
