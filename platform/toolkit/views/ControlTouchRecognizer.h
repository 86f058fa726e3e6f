// Gives a control the first word on the finger that is on it.
//
// Without it a tap or drag recogniser of a view around the control would take every touch away. A tap that
// ends on the control is the control's; a control that grips the finger (a slider, say) has it from the
// beginning. Drags of the views around other controls still take the finger over. Owned by its control. Main
// thread only.
#pragma once

#include "platform/toolkit/gestures/UIGestureRecognizer.h"

namespace toolkit {

class UIControl;

class ControlTouchRecognizer : public UIGestureRecognizer {
    RUNTIME_CLASS()
public:
    explicit ControlTouchRecognizer(UIControl& control);

    void touchBegan(const Touch& touch) override;
    void touchMoved(const Touch& touch) override;
    void touchEnded(const Touch& touch) override;
    void touchCancelled(const Touch& touch) override;

private:
    bool grips() const { return state() == GestureState::Began || state() == GestureState::Changed; }
    runtime::WeakPtr<UIControl> control_;
};

} // namespace toolkit
