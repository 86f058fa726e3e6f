#include "platform/toolkit/scrolling/ScrollPanGestureRecognizer.h"

#include "platform/toolkit/scrolling/UIScrollView.h"

namespace toolkit {

ScrollPanGestureRecognizer::ScrollPanGestureRecognizer(UIScrollView& scrollView)
    : UIPanGestureRecognizer(nullptr, "handlePan:"), scrollView_(&scrollView) {}

void ScrollPanGestureRecognizer::touchBegan(const Touch& touch) {
    if (scrollView_)
        scrollView_->fingerDown();
    UIPanGestureRecognizer::touchBegan(touch);
}

void ScrollPanGestureRecognizer::touchEnded(const Touch& touch) {
    UIPanGestureRecognizer::touchEnded(touch);
    if (scrollView_)
        scrollView_->fingerUp();
}

void ScrollPanGestureRecognizer::touchCancelled(const Touch& touch) {
    UIPanGestureRecognizer::touchCancelled(touch);
    if (scrollView_)
        scrollView_->fingerUp();
}

} // namespace toolkit
