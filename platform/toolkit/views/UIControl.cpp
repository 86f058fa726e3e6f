#include "platform/toolkit/views/UIControl.h"

#include "platform/runtime/Message.h"
#include "platform/toolkit/gestures/Touch.h"

namespace toolkit {

runtime::Class& UIControl::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIControl>("UIControl", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIControl)

UIControl::UIControl(Rect frame) : UIView(frame) {}

void UIControl::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (!enabled) {
        trackedTouch_ = -1;
        setHighlighted(false);
    }
    enabledChanged();
}

void UIControl::addTarget(runtime::Object* target, runtime::Selector action, ControlEvent event) {
    const runtime::WeakPtr<runtime::Object> weakTarget(target);
    const runtime::WeakPtr<runtime::Object> sender(this);
    addHandler(event, [weakTarget, sender, action] {
        if (action.argumentCount() == 0)
            runtime::Message<void()>{action}(weakTarget.get());
        else
            runtime::Message<void(runtime::Object*)>{action}(weakTarget.get(), sender.get());
    });
}

void UIControl::addHandler(ControlEvent event, std::function<void()> handler) {
    actions_.push_back({event, std::move(handler)});
}

void UIControl::sendActions(ControlEvent event) {
    // An action may add others, or let go of the control.
    std::vector<std::function<void()>> due;
    for (const Action& action : actions_)
        if (action.event == event)
            due.push_back(action.run);
    for (const auto& run : due)
        run();
}

bool UIControl::takesTouchAt(Point point) const {
    return pointInside(point) || UIView::takesTouchAt(point);
}

bool UIControl::isTracked(const Touch& touch) const {
    return isTracking() && touch.identifier == trackedTouch_;
}

bool UIControl::isNear(const Touch& touch) const {
    return bounds().insetBy(-touchSlop, -touchSlop).contains(touch.locationIn(this));
}

void UIControl::setHighlighted(bool highlighted) {
    if (highlighted == highlighted_)
        return;
    highlighted_ = highlighted;
    highlightChanged();
}

void UIControl::touchesBegan(const Touch& touch) {
    if (!enabled_ || isTracking())
        return;
    trackedTouch_ = touch.identifier;
    setHighlighted(true);
    sendActions(ControlEvent::TouchDown);
}

void UIControl::touchesMoved(const Touch& touch) {
    if (isTracked(touch))
        setHighlighted(isNear(touch));
}

void UIControl::touchesEnded(const Touch& touch) {
    if (!isTracked(touch))
        return;
    trackedTouch_ = -1;
    const bool inside = isNear(touch);
    setHighlighted(false);
    sendActions(inside ? ControlEvent::TouchUpInside : ControlEvent::TouchUpOutside);
}

void UIControl::touchesCancelled(const Touch& touch) {
    if (!isTracked(touch))
        return;
    trackedTouch_ = -1;
    setHighlighted(false);
    sendActions(ControlEvent::TouchCancel);
}

} // namespace toolkit
