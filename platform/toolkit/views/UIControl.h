// A view that turns touches into actions.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

enum class ControlEvent { TouchDown, TouchUpInside, TouchUpOutside, TouchCancel, ValueChanged, EditingChanged };

class UIControl : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIControl(Rect frame = {});

    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool isHighlighted() const { return highlighted_; }

    /// Sends `action` to `target` (not owned) on `event`; an action that ends in ":" gets the control.
    void addTarget(runtime::Object* target, runtime::Selector action, ControlEvent event);
    /// Calls `handler` on `event`.
    void addHandler(ControlEvent event, std::function<void()> handler);
    void sendActions(ControlEvent event);

    bool takesTouchAt(Point point) const override;
    void touchesBegan(const Touch& touch) override;
    void touchesMoved(const Touch& touch) override;
    void touchesEnded(const Touch& touch) override;
    void touchesCancelled(const Touch& touch) override;

protected:
    virtual void highlightChanged() {}

private:
    struct Action {
        ControlEvent event;
        std::function<void()> run;
    };
    void setHighlighted(bool highlighted);
    std::vector<Action> actions_;
    bool enabled_ = true;
    bool highlighted_ = false;
};

} // namespace toolkit
