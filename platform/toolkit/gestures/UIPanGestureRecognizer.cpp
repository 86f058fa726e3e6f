#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"

#include "platform/toolkit/views/UIView.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

/// Timestamps that differ by less are the same: 0.3 - 0.1 is a little less than 0.2.
constexpr double sameMoment = 1e-9;

Point difference(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}

/// A vector of the screen in a view's coordinates: only the linear part of the way there counts.
Point vectorInView(Point vector, const UIView* view) {
    if (!view)
        return vector;
    return difference(view->convertPointFrom(vector, nullptr), view->convertPointFrom({}, nullptr));
}

} // namespace

runtime::Class& UIPanGestureRecognizer::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIPanGestureRecognizer>("UIPanGestureRecognizer",
                                                                     &UIGestureRecognizer::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIPanGestureRecognizer)

Point UIPanGestureRecognizer::velocityInView(const UIView* view) const {
    if (samples_.size() < 2)
        return {};
    const Sample& latest = samples_.back();
    const double windowStart = latest.timestamp - velocityWindow;
    const auto oldest = std::find_if(samples_.begin(), samples_.end(), [&](const Sample& sample) {
        return sample.timestamp >= windowStart - sameMoment;
    });
    double elapsed = latest.timestamp - oldest->timestamp;
    Point from = oldest->screenPoint;
    if (elapsed < sameMoment) {
        if (oldest == samples_.begin())
            return {};
        // Nothing else in the window: until now the finger rested where it was seen last.
        from = std::prev(oldest)->screenPoint;
        elapsed = velocityWindow;
    }
    const Point moved = vectorInView(difference(latest.screenPoint, from), view);
    return {moved.x / elapsed, moved.y / elapsed};
}

Point UIPanGestureRecognizer::translationInView(const UIView* view) const {
    return vectorInView(difference(screenPoint_, start_), view);
}

/// Keeps the window's samples and the last one before it.
void UIPanGestureRecognizer::addSample(const Touch& touch) {
    screenPoint_ = touch.screenPoint;
    samples_.push_back({touch.timestamp, touch.screenPoint});
    const double windowStart = touch.timestamp - velocityWindow - sameMoment;
    while (samples_.size() > 2 && samples_[1].timestamp < windowStart)
        samples_.pop_front();
}

void UIPanGestureRecognizer::touchBegan(const Touch& touch) {
    touch_ = touch.identifier;
    start_ = touch.screenPoint;
    samples_.clear();
    addSample(touch);
}

void UIPanGestureRecognizer::touchMoved(const Touch& touch) {
    addSample(touch);
    if (state() != GestureState::Possible)
        transitionTo(GestureState::Changed);
    else if (std::hypot(screenPoint_.x - start_.x, screenPoint_.y - start_.y) >= beginDistance)
        transitionTo(GestureState::Began);
}

void UIPanGestureRecognizer::touchEnded(const Touch& touch) {
    addSample(touch);
    transitionTo(state() == GestureState::Possible ? GestureState::Failed : GestureState::Ended);
}

void UIPanGestureRecognizer::touchCancelled(const Touch& touch) {
    screenPoint_ = touch.screenPoint;
    transitionTo(state() == GestureState::Possible ? GestureState::Failed : GestureState::Cancelled);
}

void UIPanGestureRecognizer::reset() {
    UIGestureRecognizer::reset();
    samples_.clear();
    touch_ = -1;
}

} // namespace toolkit
