#include "platform/toolkit/gestures/Touch.h"

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

Point Touch::locationIn(const UIView* target) const {
    return target ? target->convertPointFrom(screenPoint, nullptr) : screenPoint;
}

} // namespace toolkit
