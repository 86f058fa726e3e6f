// Turns touches into one named gesture and tells a target.
//
// The recognisers of the hit view and of its ancestors see each touch; the first to begin (or to be
// recognised) makes the others fail, unless a delegate allows both. Actions run inside the touch event. Main
// thread only.
#pragma once

#include "platform/runtime/Class.h"
#include "platform/toolkit/gestures/Touch.h"

#include <functional>
#include <vector>

namespace toolkit {

class UIView;

enum class GestureState { Possible, Began, Changed, Ended, Cancelled, Failed };

class UIGestureRecognizer;

class GestureRecognizerDelegate {
public:
    virtual ~GestureRecognizerDelegate() = default;
    virtual bool gestureRecognizerShouldBegin(UIGestureRecognizer&) { return true; }
    virtual bool gestureRecognizerShouldRecognizeSimultaneously(UIGestureRecognizer&, UIGestureRecognizer&) {
        return false;
    }
};

class UIGestureRecognizer : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// `target` is not owned; a gone target is told nothing. An action that ends in ":" gets the recogniser.
    UIGestureRecognizer(runtime::Object* target, runtime::Selector action);
    ~UIGestureRecognizer() override;

    void addTarget(runtime::Object* target, runtime::Selector action);
    void addHandler(std::function<void(UIGestureRecognizer&)> handler);
    GestureState state() const { return state_; }
    /// A recogniser that is switched off while active is cancelled.
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);
    UIView* view() const { return view_; }
    /// The delegate is not owned; it belongs to `owner`, and is asked only while that one lives.
    void setDelegate(GestureRecognizerDelegate* delegate, runtime::Object* owner);
    GestureRecognizerDelegate* delegate() const { return delegateOwner_ ? delegate_ : nullptr; }

    /// Where the touch is now, in the coordinates of `view`; null means the screen's.
    Point locationInView(const UIView* view) const;

    // Fed by the TouchDispatcher.
    virtual void touchBegan(const Touch& touch) = 0;
    virtual void touchMoved(const Touch& touch) = 0;
    virtual void touchEnded(const Touch& touch) = 0;
    virtual void touchCancelled(const Touch& touch) = 0;
    /// Back to Possible for the next touch.
    virtual void reset();

protected:
    /// Enters a state and tells the targets, after asking whether it may begin.
    void transitionTo(GestureState state);
    Point screenPoint_;

private:
    /// Possible or active: touches still concern it.
    bool takesTouches() const { return state_ == GestureState::Possible || isActive(); }
    /// Sees no more of the touch that it follows, if any; cancelled when it was active, failed when it was
    /// not.
    void stopTracking();
    /// Falls back without a word to the targets; for rivals of a winner.
    void fail() { state_ = GestureState::Failed; }
    bool isActive() const { return state_ == GestureState::Began || state_ == GestureState::Changed; }
    void tellTargets();

    friend class UIView;
    friend class TouchDispatcher;
    struct Target {
        runtime::WeakPtr<runtime::Object> object;
        runtime::Selector action;
    };
    std::vector<Target> targets_;
    std::vector<std::function<void(UIGestureRecognizer&)>> handlers_;
    UIView* view_ = nullptr;
    GestureState state_ = GestureState::Possible;
    bool enabled_ = true;
    GestureRecognizerDelegate* delegate_ = nullptr;
    runtime::WeakPtr<runtime::Object> delegateOwner_;
};

} // namespace toolkit
