#include "platform/toolkit/gestures/TouchDispatcher.h"

#include "platform/toolkit/gestures/UIGestureRecognizer.h"
#include "platform/toolkit/views/UIView.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <algorithm>
#include <utility>

namespace toolkit {

namespace {

bool follows(const std::vector<std::weak_ptr<UIGestureRecognizer>>& list, const UIGestureRecognizer& wanted) {
    return std::any_of(list.begin(), list.end(),
                       [&wanted](const auto& weak) { return weak.lock().get() == &wanted; });
}

bool allowsBoth(UIGestureRecognizer& winner, UIGestureRecognizer& rival) {
    auto* first = winner.delegate();
    if (first && first->gestureRecognizerShouldRecognizeSimultaneously(winner, rival))
        return true;
    auto* second = rival.delegate();
    return second && second->gestureRecognizerShouldRecognizeSimultaneously(rival, winner);
}

} // namespace

TouchDispatcher& TouchDispatcher::shared() {
    // Never torn down: there is one screen to touch, as long as the process runs.
    static auto& dispatcher = *new TouchDispatcher;
    return dispatcher;
}

std::shared_ptr<TouchDispatcher::Active> TouchDispatcher::find(std::int64_t identifier) const {
    const auto found = touches_.find(identifier);
    return found == touches_.end() ? nullptr : found->second;
}

std::shared_ptr<TouchDispatcher::Active>
TouchDispatcher::touchFollowedBy(const UIGestureRecognizer& recognizer) const {
    for (const auto& [identifier, active] : touches_)
        if (follows(active->recognizers, recognizer))
            return active;
    return nullptr;
}

// ---- Events from the host

void TouchDispatcher::touchDown(std::int64_t identifier, Point screenPoint, double timestamp) {
    touchCancel(identifier, timestamp);
    UIWindow* window = WindowServer::shared().windowAt(screenPoint);
    if (!window)
        return;
    UIView* hit = window->hitTest(window->convertPointFrom(screenPoint, nullptr));
    if (!hit)
        return;
    auto active = std::make_shared<Active>();
    active->touch.identifier = identifier;
    active->touch.phase = TouchPhase::Began;
    active->touch.timestamp = timestamp;
    active->touch.screenPoint = screenPoint;
    active->touch.view = hit;
    collectRecognizers(*active, *hit);
    touches_[identifier] = active;
    deliver(*active);
}

void TouchDispatcher::touchMove(std::int64_t identifier, Point screenPoint, double timestamp) {
    const auto active = find(identifier);
    if (!active)
        return;
    active->touch.phase = TouchPhase::Moved;
    active->touch.timestamp = timestamp;
    active->touch.screenPoint = screenPoint;
    deliver(*active);
}

void TouchDispatcher::touchUp(std::int64_t identifier, double timestamp) {
    finish(identifier, TouchPhase::Ended, timestamp);
}

void TouchDispatcher::touchCancel(std::int64_t identifier, double timestamp) {
    finish(identifier, TouchPhase::Cancelled, timestamp);
}

void TouchDispatcher::cancelAll(double timestamp) {
    std::vector<std::int64_t> identifiers;
    for (const auto& [identifier, active] : touches_)
        identifiers.push_back(identifier);
    for (const auto identifier : identifiers)
        touchCancel(identifier, timestamp);
}

void TouchDispatcher::finish(std::int64_t identifier, TouchPhase phase, double timestamp) {
    const auto active = find(identifier);
    if (!active)
        return;
    active->touch.phase = phase;
    active->touch.timestamp = timestamp;
    deliver(*active);
    // An action may have cancelled this very touch, and a new one may have its number by now.
    if (active->over)
        return;
    active->over = true;
    touches_.erase(identifier);
    for (const auto& weak : active->recognizers)
        if (const auto recognizer = weak.lock())
            recognizer->reset();
}

// ---- Delivery

/// Those of the hit view and of the views above it, the innermost first. One that already follows a touch
/// stays with that.
void TouchDispatcher::collectRecognizers(Active& active, UIView& hit) const {
    for (const UIView* view = &hit; view; view = view->superview())
        for (const auto& recognizer : view->gestureRecognizers())
            if (recognizer->isEnabled() && !touchFollowedBy(*recognizer))
                active.recognizers.push_back(recognizer);
}

void TouchDispatcher::deliver(Active& active) {
    deliverToRecognizers(active);
    deliverToView(active);
}

void TouchDispatcher::deliverToRecognizers(Active& active) {
    const auto recognizers = active.recognizers;
    const Touch touch = active.touch;
    for (const auto& weak : recognizers) {
        if (active.over)
            return;
        const auto recognizer = weak.lock();
        if (!recognizer || !recognizer->takesTouches())
            continue;
        if (!recognizer->view()) { // its view went with the finger still down
            recognizer->stopTracking();
            continue;
        }
        switch (touch.phase) {
        case TouchPhase::Began:
            recognizer->touchBegan(touch);
            break;
        case TouchPhase::Moved:
            recognizer->touchMoved(touch);
            break;
        case TouchPhase::Ended:
            recognizer->touchEnded(touch);
            break;
        case TouchPhase::Cancelled:
            recognizer->touchCancelled(touch);
            break;
        }
    }
}

void TouchDispatcher::deliverToView(Active& active) {
    UIView* view = active.touch.view.get();
    if (!view || active.over || active.viewCancelled)
        return;
    const auto kept = view->weak_from_this().lock();
    const Touch touch = active.touch;
    switch (touch.phase) {
    case TouchPhase::Began:
        active.viewBegan = true;
        view->touchesBegan(touch);
        break;
    case TouchPhase::Moved:
        view->touchesMoved(touch);
        break;
    case TouchPhase::Ended:
        view->touchesEnded(touch);
        break;
    case TouchPhase::Cancelled:
        view->touchesCancelled(touch);
        break;
    }
}

void TouchDispatcher::recognized(UIGestureRecognizer& winner) {
    const auto active = touchFollowedBy(winner);
    if (!active)
        return;
    const auto recognizers = active->recognizers;
    for (const auto& weak : recognizers) {
        const auto rival = weak.lock();
        if (rival && rival.get() != &winner && rival->state() == GestureState::Possible &&
            !allowsBoth(winner, *rival))
            rival->fail();
    }
    UIView* view = active->touch.view.get();
    // A touch that was won before the view heard of it is none of the view's business.
    if (std::exchange(active->viewCancelled, true) || !active->viewBegan || !view)
        return;
    const auto kept = view->weak_from_this().lock();
    Touch touch = active->touch;
    touch.phase = TouchPhase::Cancelled;
    view->touchesCancelled(touch);
}

} // namespace toolkit
