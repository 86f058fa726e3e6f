#include "platform/toolkit/views/UISlider.h"

#include "platform/toolkit/gestures/Touch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace toolkit {

namespace {
constexpr double trackHeight = 2; // points
constexpr double thumbSide = 28;  // points
constexpr double preferredHeight = 31;
constexpr double moveDuration = 0.2; // seconds
constexpr double disabledAlpha = 0.5;
} // namespace

runtime::Class& UISlider::staticClass() {
    static auto& cls = runtime::ClassBuilder<UISlider>("UISlider", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UISlider)

UISlider::UISlider(Rect frame)
    : UIControl(frame),
      track_(std::make_shared<UIView>()),
      filledTrack_(std::make_shared<UIView>()),
      thumb_(std::make_shared<UIView>()) {
    for (const auto& part : {track_, filledTrack_, thumb_}) {
        part->setUserInteractionEnabled(false);
        addSubview(part);
    }
    track_->setBackgroundColor(Color::white(0.72));
    track_->layer()->setCornerRadius(trackHeight / 2);
    filledTrack_->setBackgroundColor(Color::rgba(0, 122 / 255.0, 1));
    filledTrack_->layer()->setCornerRadius(trackHeight / 2);
    thumb_->setBackgroundColor(Color::white(1));
    thumb_->layer()->setCornerRadius(thumbSide / 2);
    thumb_->layer()->setShadow({Color::black(), 0.25, 2, {0, 2}});
}

// Value

float UISlider::clamped(float value) const {
    return std::isnan(value) ? minimum_ : std::clamp(value, minimum_, maximum_);
}

void UISlider::setMinimumValue(float minimum) {
    if (!std::isfinite(minimum))
        return;
    minimum_ = minimum;
    maximum_ = std::max(maximum_, minimum);
    setValue(value_);
}

void UISlider::setMaximumValue(float maximum) {
    if (!std::isfinite(maximum))
        return;
    maximum_ = std::max(maximum, minimum_);
    setValue(value_);
}

void UISlider::setValue(float value) {
    value_ = clamped(value);
    show();
}

void UISlider::setValueAnimated(float value) {
    value_ = clamped(value);
    UIView::animate(moveDuration, 0, AnimationCurve::EaseInOut, [this] { show(); });
}

// Showing

double UISlider::travel() const {
    return std::max(0.0, bounds().width - thumbSide);
}

double UISlider::fraction() const {
    const double range = static_cast<double>(maximum_) - minimum_;
    return range > 0 ? (static_cast<double>(value_) - minimum_) / range : 0;
}

void UISlider::show() {
    const Rect area = bounds();
    const double middle = area.y + area.height / 2;
    const double thumbX = area.x + travel() * fraction();
    const double trackY = middle - trackHeight / 2;
    track_->setFrame({area.x, trackY, area.width, trackHeight});
    filledTrack_->setFrame({area.x, trackY, thumbX - area.x + thumbSide / 2, trackHeight});
    thumb_->setFrame({thumbX, middle - thumbSide / 2, thumbSide, thumbSide});
}

void UISlider::layoutSubviews() {
    show();
}

Size UISlider::sizeThatFits(Size size) const {
    return {size.width, preferredHeight};
}

void UISlider::enabledChanged() {
    setAlpha(isEnabled() ? 1 : disabledAlpha);
}

// Touches

double UISlider::touchReach() const {
    return std::numeric_limits<double>::infinity();
}

void UISlider::touchesBegan(const Touch& touch) {
    if (!isTracking()) {
        gripX_ = touch.locationIn(this).x;
        gripValue_ = value_;
    }
    UIControl::touchesBegan(touch);
}

void UISlider::touchesMoved(const Touch& touch) {
    UIControl::touchesMoved(touch);
    if (!isTracked(touch) || travel() <= 0)
        return;
    const double moved = (touch.locationIn(this).x - gripX_) / travel();
    const double range = static_cast<double>(maximum_) - minimum_;
    const float before = value_;
    setValue(static_cast<float>(gripValue_ + moved * range));
    if (continuous_ && value_ != before)
        sendActions(ControlEvent::ValueChanged);
}

void UISlider::sendFinalValue(const Touch& touch) {
    if (isTracked(touch) && !continuous_ && value_ != gripValue_)
        sendActions(ControlEvent::ValueChanged);
}

void UISlider::touchesEnded(const Touch& touch) {
    const auto kept = weak_from_this().lock();
    sendFinalValue(touch);
    UIControl::touchesEnded(touch);
}

void UISlider::touchesCancelled(const Touch& touch) {
    const auto kept = weak_from_this().lock();
    sendFinalValue(touch);
    UIControl::touchesCancelled(touch);
}

} // namespace toolkit
