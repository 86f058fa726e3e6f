#include "platform/toolkit/gestures/UITapGestureRecognizer.h"

#include <cmath>

namespace toolkit {

runtime::Class& UITapGestureRecognizer::staticClass() {
    static auto& cls = runtime::ClassBuilder<UITapGestureRecognizer>("UITapGestureRecognizer",
                                                                     &UIGestureRecognizer::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UITapGestureRecognizer)

void UITapGestureRecognizer::touchBegan(const Touch& touch) {
    touch_ = touch.identifier;
    screenPoint_ = start_ = touch.screenPoint;
    began_ = touch.timestamp;
}

void UITapGestureRecognizer::touchMoved(const Touch& touch) {
    screenPoint_ = touch.screenPoint;
    if (std::hypot(screenPoint_.x - start_.x, screenPoint_.y - start_.y) > maximumMovement)
        transitionTo(GestureState::Failed);
}

void UITapGestureRecognizer::touchEnded(const Touch& touch) {
    screenPoint_ = touch.screenPoint;
    const bool quick = touch.timestamp - began_ <= maximumDuration;
    transitionTo(quick ? GestureState::Ended : GestureState::Failed);
}

void UITapGestureRecognizer::touchCancelled(const Touch& touch) {
    screenPoint_ = touch.screenPoint;
    transitionTo(GestureState::Failed);
}

void UITapGestureRecognizer::reset() {
    UIGestureRecognizer::reset();
    touch_ = -1;
}

} // namespace toolkit
