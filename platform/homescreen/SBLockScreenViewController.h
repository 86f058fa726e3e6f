// The lock screen's controller, which hears of the display going dark.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

namespace homescreen {

class SBLockScreenViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// The display has just been turned off.
    void _handleDisplayTurnedOff();

private:
    void hostHandleDisplayTurnedOff();
};

} // namespace homescreen
