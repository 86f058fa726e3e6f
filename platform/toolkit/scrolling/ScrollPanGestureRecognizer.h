// The drag recogniser of a scroll view. Beyond what any pan does it tells the scroll view of every touch that
// comes down and goes up, so that content in motion stops under the finger.
#pragma once

#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"

namespace toolkit {

class UIScrollView;

class ScrollPanGestureRecognizer : public UIPanGestureRecognizer {
public:
    explicit ScrollPanGestureRecognizer(UIScrollView& scrollView);

    void touchBegan(const Touch& touch) override;
    void touchEnded(const Touch& touch) override;
    void touchCancelled(const Touch& touch) override;

private:
    runtime::WeakPtr<UIScrollView> scrollView_;
};

} // namespace toolkit
