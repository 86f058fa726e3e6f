#include "platform/plugins/LiftRecognizer.h"

#include "platform/toolkit/views/UIView.h"

namespace plugins {

using toolkit::GestureState;

runtime::Class& LiftRecognizer::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<LiftRecognizer>("LiftRecognizer", &UIGestureRecognizer::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(LiftRecognizer)

LiftRecognizer::LiftRecognizer() : UIGestureRecognizer(nullptr, "lifted") {}

void LiftRecognizer::touchBegan(const toolkit::Touch& touch) {
    // A child's finger is the child's.
    if (touch.view.get() != view())
        transitionTo(GestureState::Failed);
}

void LiftRecognizer::touchMoved(const toolkit::Touch&) {}

void LiftRecognizer::touchEnded(const toolkit::Touch& touch) {
    toolkit::UIView* touched = view();
    const auto kept = touched->weak_from_this().lock();
    touched->touchesEnded(touch); // which may let go of the view
    transitionTo(GestureState::Ended);
}

void LiftRecognizer::touchCancelled(const toolkit::Touch&) {
    transitionTo(GestureState::Failed);
}

} // namespace plugins
