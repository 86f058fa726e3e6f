// One finger (or the pointer's button) on the screen, from down to up.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <cstdint>

namespace toolkit {

class UIView;

enum class TouchPhase { Began, Moved, Ended, Cancelled };

class Touch {
public:
    std::int64_t identifier = 0;
    TouchPhase phase = TouchPhase::Began;
    double timestamp = 0;          // seconds, run loop time of the event
    Point screenPoint;             // points, screen coordinates
    runtime::WeakPtr<UIView> view; // the view that was hit

    Point locationIn(const UIView* view) const;
};

} // namespace toolkit
