// Recognises that a finger that came down on its view has been lifted, before any recogniser of a view
// around it does, and tells the view first of all.
#pragma once

#include "platform/toolkit/gestures/UIGestureRecognizer.h"

namespace plugins {

class LiftRecognizer final : public toolkit::UIGestureRecognizer {
    RUNTIME_CLASS()
public:
    LiftRecognizer();

    void touchBegan(const toolkit::Touch& touch) override;
    void touchMoved(const toolkit::Touch& touch) override;
    void touchEnded(const toolkit::Touch& touch) override;
    void touchCancelled(const toolkit::Touch& touch) override;
};

} // namespace plugins
