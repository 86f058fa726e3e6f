// A drag: begins after 10 points of movement.
#pragma once

#include "platform/toolkit/gestures/UIGestureRecognizer.h"

#include <deque>

namespace toolkit {

class UIPanGestureRecognizer : public UIGestureRecognizer {
    RUNTIME_CLASS()
public:
    using UIGestureRecognizer::UIGestureRecognizer;

    static constexpr double beginDistance = 10;   // points
    static constexpr double velocityWindow = 0.1; // seconds of event time

    /// Points a second along both axes of `view`'s coordinates, over the last 100 ms of event time.
    Point velocityInView(const UIView* view) const;
    /// Movement since the touch went down, in `view`'s coordinates.
    Point translationInView(const UIView* view) const;

    void touchBegan(const Touch& touch) override;
    void touchMoved(const Touch& touch) override;
    void touchEnded(const Touch& touch) override;
    void touchCancelled(const Touch& touch) override;
    void reset() override;

private:
    struct Sample {
        double timestamp;
        Point screenPoint;
    };
    void addSample(const Touch& touch);
    std::deque<Sample> samples_;
    Point start_;
    std::int64_t touch_ = -1;
};

} // namespace toolkit
