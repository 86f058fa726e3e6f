#include "platform/toolkit/gestures/UIGestureRecognizer.h"

#include "platform/foundation/Log.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/UIView.h"

namespace toolkit {

runtime::Class& UIGestureRecognizer::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UIGestureRecognizer>("UIGestureRecognizer", &runtime::Object::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIGestureRecognizer)

UIGestureRecognizer::UIGestureRecognizer(runtime::Object* target, runtime::Selector action) {
    addTarget(target, action);
}

UIGestureRecognizer::~UIGestureRecognizer() = default;

void UIGestureRecognizer::addTarget(runtime::Object* target, runtime::Selector action) {
    if (target)
        targets_.push_back({target, action});
}

void UIGestureRecognizer::addHandler(std::function<void(UIGestureRecognizer&)> handler) {
    if (handler)
        handlers_.push_back(std::move(handler));
}

void UIGestureRecognizer::setDelegate(GestureRecognizerDelegate* delegate, runtime::Object* owner) {
    delegate_ = delegate;
    delegateOwner_ = owner;
}

void UIGestureRecognizer::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (!enabled)
        stopTracking();
}

void UIGestureRecognizer::stopTracking() {
    if (isActive())
        transitionTo(GestureState::Cancelled);
    else if (state_ == GestureState::Possible && TouchDispatcher::shared().touchFollowedBy(*this))
        fail();
}

Point UIGestureRecognizer::locationInView(const UIView* view) const {
    return view ? view->convertPointFrom(screenPoint_, nullptr) : screenPoint_;
}

void UIGestureRecognizer::reset() {
    state_ = GestureState::Possible;
}

void UIGestureRecognizer::transitionTo(GestureState state) {
    // The recogniser may be let go by those that it tells.
    const auto kept = weak_from_this().lock();
    const bool starts =
        state_ == GestureState::Possible && (state == GestureState::Began || state == GestureState::Ended);
    if (!starts && !isActive()) {
        // Nobody has heard of this gesture, so nobody is told that it came to nothing.
        state_ = state;
        return;
    }
    if (starts) {
        if (auto* asked = delegate(); asked && !asked->gestureRecognizerShouldBegin(*this)) {
            fail();
            return;
        }
        if (state_ != GestureState::Possible) // the delegate switched the recogniser off
            return;
    }
    state_ = state;
    if (starts)
        TouchDispatcher::shared().recognized(*this);
    if (state_ == state)
        tellTargets();
}

void UIGestureRecognizer::tellTargets() {
    static const auto tell = [](runtime::Object& object, runtime::Selector action,
                                UIGestureRecognizer& sender) {
        if (!runtime::respondsTo(object, action))
            foundation::log(object.isa().name() + " does not respond to the action " + action.name());
        else if (action.argumentCount() > 0)
            runtime::Message<void(runtime::Object*)>{action}(object, &sender);
        else
            runtime::Message<void()>{action}(object);
    };
    const GestureState told = state_;
    const auto targets = targets_;
    const auto handlers = handlers_;
    for (const auto& target : targets) {
        runtime::Object* object = target.object.get();
        if (!object)
            continue;
        const auto keptTarget = object->weak_from_this().lock();
        tell(*object, target.action, *this);
        if (state_ != told) // an earlier target ended the gesture: the news is old
            return;
    }
    for (const auto& handler : handlers) {
        handler(*this);
        if (state_ != told)
            return;
    }
}

} // namespace toolkit
