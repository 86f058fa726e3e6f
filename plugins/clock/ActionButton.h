// A button with a word on it, in the colour of what it does.
#pragma once

#include "PressArea.h"
#include "VelaPlugin.h"

#include <functional>
#include <string>

namespace clockplugin {

enum class Action { Neutral, Go, Stop, Attention };

class ActionButton {
public:
    ActionButton(vela::plugin::Container& container, std::string title, Action action,
                 std::function<void()> onTap);

    void setFrame(vela::plugin::Rect frame) { area_.setFrame(frame); }
    void setTitle(std::string title, Action action);
    void setEnabled(bool enabled);

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, bool isPressed) const;

    std::string title_;
    Action action_;
    bool isEnabled_ = true;
    PressArea area_;
};

} // namespace clockplugin
