#include "platform/media/MPUTimeScrubber.h"

#include "platform/toolkit/gestures/Touch.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace toolkit;

namespace media {

namespace {

constexpr double trackHeight = 3; // points
constexpr double markWidth = 2.5, markHeight = 14;
constexpr double heldMarkWidth = 4, heldMarkHeight = 22;
constexpr double growDuration = 0.15; // seconds
constexpr double restAlpha = 0.28;

} // namespace

runtime::Class& MPUTimeScrubber::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUTimeScrubber>("MPUTimeScrubber", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUTimeScrubber)

MPUTimeScrubber::MPUTimeScrubber()
    : track_(std::make_shared<UIView>()),
      past_(std::make_shared<UIView>()),
      mark_(std::make_shared<UIView>()) {
    for (const auto& part : {track_, past_, mark_}) {
        part->setUserInteractionEnabled(false);
        addSubview(part);
    }
    track_->layer()->setCornerRadius(trackHeight / 2);
    past_->layer()->setCornerRadius(trackHeight / 2);
    mark_->layer()->setCornerRadius(markWidth / 2);
    setColor(Color::white(1));
}

void MPUTimeScrubber::setColor(Color color) {
    track_->setBackgroundColor(color.withAlpha(color.alpha * restAlpha));
    past_->setBackgroundColor(color);
    mark_->setBackgroundColor(color);
}

void MPUTimeScrubber::setValue(double value) {
    if (isTracking())
        return;
    value_ = std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0;
    show();
}

double MPUTimeScrubber::travel() const {
    return std::max(0.0, bounds().width - markWidth);
}

void MPUTimeScrubber::show() {
    const Rect area = bounds();
    const double middle = area.y + area.height / 2, x = area.x + markWidth / 2 + travel() * value_;
    const double width = isTracking() ? heldMarkWidth : markWidth,
                 height = isTracking() ? heldMarkHeight : markHeight;
    track_->setFrame({area.x, middle - trackHeight / 2, area.width, trackHeight});
    past_->setFrame({area.x, middle - trackHeight / 2, x - area.x, trackHeight});
    mark_->setFrame({x - width / 2, middle - height / 2, width, height});
}

void MPUTimeScrubber::layoutSubviews() {
    show();
}

double MPUTimeScrubber::touchReach() const {
    return std::numeric_limits<double>::infinity();
}

void MPUTimeScrubber::highlightChanged() {
    UIView::animate(growDuration, 0, AnimationCurve::EaseInOut, [this] { show(); });
}

void MPUTimeScrubber::enabledChanged() {
    mark_->setHidden(!isEnabled());
    show();
}

void MPUTimeScrubber::touchesBegan(const Touch& touch) {
    if (!isTracking()) {
        gripX_ = touch.locationIn(this).x;
        gripValue_ = value_;
    }
    UIControl::touchesBegan(touch);
}

void MPUTimeScrubber::touchesMoved(const Touch& touch) {
    UIControl::touchesMoved(touch);
    if (!isTracked(touch) || travel() <= 0)
        return;
    value_ = std::clamp(gripValue_ + (touch.locationIn(this).x - gripX_) / travel(), 0.0, 1.0);
    show();
    sendActions(ControlEvent::ValueChanged);
}

void MPUTimeScrubber::describeProperties(nlohmann::json& properties) const {
    UIControl::describeProperties(properties);
    properties["value"] = value_;
}

} // namespace media
