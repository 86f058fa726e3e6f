#include "platform/toolkit/views/UISwitch.h"

#include "platform/toolkit/gestures/Touch.h"

#include <cmath>

namespace toolkit {

namespace {
constexpr double rim = 1.5;           // points between the thumb and the track's edge
constexpr double pressedStretch = 7;  // points that the thumb grows by under the finger
constexpr double turnDuration = 0.25; // seconds
constexpr double dragDistance = 10;   // points from where the finger went down
constexpr double disabledAlpha = 0.5;
const Color offColor = Color::white(0.90);
} // namespace

runtime::Class& UISwitch::staticClass() {
    static auto& cls = runtime::ClassBuilder<UISwitch>("UISwitch", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UISwitch)

UISwitch::UISwitch(Rect frame)
    : UIControl({frame.origin(), switchSize}),
      track_(std::make_shared<UIView>()),
      thumb_(std::make_shared<UIView>()) {
    track_->setUserInteractionEnabled(false);
    track_->layer()->setCornerRadius(switchSize.height / 2);
    thumb_->setUserInteractionEnabled(false);
    thumb_->setBackgroundColor(Color::white(1));
    thumb_->layer()->setCornerRadius(switchSize.height / 2 - rim);
    thumb_->layer()->setShadow({Color::black(), 0.22, 3, {0, 2}});
    addSubview(track_);
    addSubview(thumb_);
    show();
}

void UISwitch::setOn(bool on) {
    on_ = on;
    show();
}

void UISwitch::setOnAnimated(bool on) {
    on_ = on;
    showAnimated();
}

void UISwitch::setOnTintColor(Color color) {
    onTintColor_ = color;
    show();
}

void UISwitch::setFrame(Rect frame) {
    UIControl::setFrame({frame.origin(), switchSize});
}

void UISwitch::show() {
    const Rect area({}, switchSize);
    const double side = area.height - 2 * rim;
    const double width = side + (isHighlighted() ? pressedStretch : 0);
    track_->setFrame(area);
    track_->setBackgroundColor(on_ ? onTintColor_ : offColor);
    thumb_->setFrame({on_ ? area.width - rim - width : rim, rim, width, side});
}

void UISwitch::showAnimated() {
    UIView::animate(turnDuration, 0, AnimationCurve::EaseInOut, [this] { show(); });
}

void UISwitch::highlightChanged() {
    showAnimated();
}

void UISwitch::enabledChanged() {
    setAlpha(isEnabled() ? 1 : disabledAlpha);
}

void UISwitch::touchesBegan(const Touch& touch) {
    if (!isTracking()) {
        dragged_ = false;
        valueAtTouch_ = on_;
        touchStart_ = touch.locationIn(this).x;
    }
    UIControl::touchesBegan(touch);
}

void UISwitch::touchesMoved(const Touch& touch) {
    UIControl::touchesMoved(touch);
    if (!isTracked(touch))
        return;
    const double x = touch.locationIn(this).x;
    if (std::abs(x - touchStart_) < dragDistance)
        return;
    // From here on the thumb is where the finger is, and lifting it turns nothing any more.
    dragged_ = true;
    const bool on = x > switchSize.width / 2;
    if (on != on_)
        setOnAnimated(on);
}

void UISwitch::touchesEnded(const Touch& touch) {
    if (!isTracked(touch))
        return;
    const runtime::WeakPtr<UISwitch> self(this);
    const bool tapped = isHighlighted() && !dragged_;
    UIControl::touchesEnded(touch);
    if (!self || !isEnabled())
        return;
    if (tapped)
        setOnAnimated(!on_);
    if (on_ != valueAtTouch_)
        sendActions(ControlEvent::ValueChanged);
}

void UISwitch::touchesCancelled(const Touch& touch) {
    if (isTracked(touch) && on_ != valueAtTouch_)
        setOnAnimated(valueAtTouch_);
    UIControl::touchesCancelled(touch);
}

} // namespace toolkit
