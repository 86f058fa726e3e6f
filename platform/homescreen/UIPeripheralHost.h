// The on-screen keyboard as the rest of the system sees it.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

namespace homescreen {

class UIPeripheralHost {
public:
    /// The keyboard's frame in points of the screen; height 0 while it is not showing.
    static toolkit::Rect visiblePeripheralFrame();
};

} // namespace homescreen
