// What the product holds for the life of the process: the host's application object and its own six windows.
//
// Filled while the host launches, null before; never released. Main thread only.
#pragma once

#include <memory>

namespace homescreen {
class SpringBoard;
}

namespace vela {

class darkingWindow;
class leftController;
class leftWindowGrabber;
class rightController;
class rightWindowGrabber;
class socialWindow;

struct ModuleState {
    homescreen::SpringBoard* spring = nullptr; // owned by the host
    std::shared_ptr<darkingWindow> darking;    // dims the screen beside an open panel
    std::shared_ptr<rightController> right;    // the music panel
    std::shared_ptr<rightWindowGrabber> rightGrabber;
    std::shared_ptr<leftController> left; // the board's panel
    std::shared_ptr<leftWindowGrabber> leftGrabber;
    std::shared_ptr<socialWindow> social; // the sharing window
    bool lastChevrons = false;            // "Alternative chevrons" as last applied
};

ModuleState& moduleState();

} // namespace vela
