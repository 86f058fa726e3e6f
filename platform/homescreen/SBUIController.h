// Answers the Home button.
#pragma once

#include "platform/runtime/Class.h"

namespace homescreen {

class SBUIController : public runtime::Object {
    RUNTIME_CLASS()
public:
    static SBUIController& sharedInstance();

    /// The button was pressed once; answers whether anything came of it.
    bool clickedMenuButton();
    /// The button was pressed twice in a row.
    bool handleMenuDoubleTap();

private:
    bool hostClickedMenuButton();
    bool hostHandleMenuDoubleTap();
};

} // namespace homescreen
