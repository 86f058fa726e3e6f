#include "platform/toolkit/views/ControlTouchRecognizer.h"

#include "platform/toolkit/views/UIControl.h"

namespace toolkit {

runtime::Class& ControlTouchRecognizer::staticClass() {
    static auto& cls = runtime::ClassBuilder<ControlTouchRecognizer>("ControlTouchRecognizer",
                                                                     &UIGestureRecognizer::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ControlTouchRecognizer)

ControlTouchRecognizer::ControlTouchRecognizer(UIControl& control)
    : UIGestureRecognizer(nullptr, "touched:"), control_(&control) {}

// Once this recogniser has begun, views get no more touches: it hands them to the control itself.

void ControlTouchRecognizer::touchBegan(const Touch& touch) {
    if (!control_ || !control_->gripsFinger() || touch.view.get() != control_.get())
        return;
    transitionTo(GestureState::Began);
    if (grips())
        control_->touchesBegan(touch);
}

void ControlTouchRecognizer::touchMoved(const Touch& touch) {
    if (!control_ || !grips())
        return;
    control_->touchesMoved(touch);
    transitionTo(GestureState::Changed);
}

void ControlTouchRecognizer::touchEnded(const Touch& touch) {
    // The control first: it follows no finger any more when its touch is cancelled by this recogniser's
    // success.
    const bool mine = control_ && (grips() || control_->wouldEndInside(touch));
    if (!mine) {
        transitionTo(GestureState::Failed);
        return;
    }
    control_->touchesEnded(touch);
    transitionTo(GestureState::Ended);
}

void ControlTouchRecognizer::touchCancelled(const Touch& touch) {
    if (control_ && grips()) {
        control_->touchesCancelled(touch);
        transitionTo(GestureState::Cancelled);
        return;
    }
    transitionTo(GestureState::Failed);
}

} // namespace toolkit
