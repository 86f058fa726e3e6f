// A view that turns touches into actions.
//
// It follows one finger at a time, from where it went down until it is lifted: TouchDown first, then
// TouchUpInside when it is lifted on the control or near it, TouchUpOutside farther away, TouchCancel when
// something else (a drag of the scroll view around it, say) has taken the finger over.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

enum class ControlEvent {
    TouchDown,
    TouchUpInside,
    TouchUpOutside,
    TouchCancel,
    ValueChanged,
    EditingChanged
};

class UIControl : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIControl(Rect frame = {});

    bool isEnabled() const { return enabled_; }
    /// A disabled control sends nothing; a touch under way is cancelled.
    void setEnabled(bool enabled);
    /// Whether a finger is on the control now.
    bool isHighlighted() const { return highlighted_; }

    /// Sends `action` to `target` (not owned) on `event`; an action that ends in ":" gets the control.
    void addTarget(runtime::Object* target, runtime::Selector action, ControlEvent event);
    /// Calls `handler` on `event`.
    void addHandler(ControlEvent event, std::function<void()> handler);
    void sendActions(ControlEvent event);

    bool takesTouchAt(Point point) const override;
    void describeProperties(nlohmann::json& properties) const override;
    void touchesBegan(const Touch& touch) override;
    void touchesMoved(const Touch& touch) override;
    void touchesEnded(const Touch& touch) override;
    void touchesCancelled(const Touch& touch) override;

protected:
    virtual void highlightChanged() {}
    /// Whether the control has the finger for itself from the beginning, so that no drag around it begins.
    virtual bool gripsFinger() const { return false; }
    /// How far beside the control, in points, a finger may slip without letting go of it.
    virtual double touchReach() const { return 70; }
    virtual void enabledChanged() {}
    bool isTracking() const { return trackedTouch_ >= 0; }
    /// Whether this is the finger that the control follows.
    bool isTracked(const Touch& touch) const;

private:
    friend class ControlTouchRecognizer;
    struct Action {
        ControlEvent event;
        std::function<void()> run;
    };
    void setHighlighted(bool highlighted);
    bool isNear(const Touch& touch) const;
    bool wouldEndInside(const Touch& touch) const { return isTracked(touch) && isNear(touch); }
    std::vector<Action> actions_;
    bool enabled_ = true;
    bool highlighted_ = false;
    std::int64_t trackedTouch_ = -1; // none
};

} // namespace toolkit
