#include "platform/plugins/TouchedView.h"

#include "platform/plugins/LiftRecognizer.h"

namespace plugins {

TouchedView::TouchedView() {
    addGestureRecognizer(std::make_shared<LiftRecognizer>());
}

void TouchedView::touchesBegan(const toolkit::Touch& touch) {
    fingers_.insert(touch.identifier);
    pass(touch);
}

void TouchedView::touchesMoved(const toolkit::Touch& touch) {
    if (fingers_.contains(touch.identifier))
        pass(touch);
}

void TouchedView::touchesEnded(const toolkit::Touch& touch) {
    finish(touch);
}

void TouchedView::touchesCancelled(const toolkit::Touch& touch) {
    finish(touch);
}

void TouchedView::finish(const toolkit::Touch& touch) {
    if (fingers_.erase(touch.identifier) > 0)
        pass(touch);
}

} // namespace plugins
