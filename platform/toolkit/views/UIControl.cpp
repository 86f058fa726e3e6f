#include "platform/toolkit/views/UIControl.h"

#include "platform/runtime/Message.h"
#include "platform/toolkit/gestures/Touch.h"
#include "platform/toolkit/views/ControlTouchRecognizer.h"

#include <algorithm>

namespace toolkit {

runtime::Class& UIControl::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIControl>("UIControl", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIControl)

UIControl::UIControl(Rect frame) : UIView(frame) {
    addGestureRecognizer(std::make_shared<ControlTouchRecognizer>(*this));
}

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
    return const_cast<UIControl*>(this)->hitTest(point) != nullptr;
}

bool UIControl::isTracked(const Touch& touch) const {
    return isTracking() && touch.identifier == trackedTouch_;
}

bool UIControl::isNear(const Touch& touch) const {
    const Rect area = bounds();
    const Point point = touch.locationIn(this);
    const double beside = std::max({area.x - point.x, point.x - area.maxX(), 0.0});
    const double above = std::max({area.y - point.y, point.y - area.maxY(), 0.0});
    return std::max(beside, above) <= touchReach();
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
