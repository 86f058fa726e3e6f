// A tap: down and up within 10 points and 0.75 seconds.
#pragma once

#include "platform/toolkit/gestures/UIGestureRecognizer.h"

namespace toolkit {

class UITapGestureRecognizer : public UIGestureRecognizer {
    RUNTIME_CLASS()
public:
    using UIGestureRecognizer::UIGestureRecognizer;

    static constexpr double maximumMovement = 10;   // points
    static constexpr double maximumDuration = 0.75; // seconds

    void touchBegan(const Touch& touch) override;
    void touchMoved(const Touch& touch) override;
    void touchEnded(const Touch& touch) override;
    void touchCancelled(const Touch& touch) override;
    void reset() override;

private:
    Point start_;
    double began_ = 0;
    std::int64_t touch_ = -1;
};

} // namespace toolkit
