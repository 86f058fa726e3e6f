#include "ActionButton.h"

#include "Palette.h"

#include <algorithm>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double narrow = 64; // points of width, below which the lettering is smaller

Color letteringOf(Action action) {
    switch (action) {
    case Action::Go:
        return palette::softGreen;
    case Action::Stop:
        return palette::softRed;
    default:
        return colors::primary;
    }
}

Color fillOf(Action action, bool isPressed) {
    switch (action) {
    case Action::Go:
        return colors::green.withAlpha(isPressed ? 0.5 : 0.26);
    case Action::Stop:
        return colors::red.withAlpha(isPressed ? 0.5 : 0.28);
    case Action::Attention:
        return isPressed ? colors::orange.withAlpha(0.6) : colors::orange;
    case Action::Neutral:
        break;
    }
    return isPressed ? colors::pressedFill : colors::fill;
}

} // namespace

ActionButton::ActionButton(Container& container, std::string title, Action action,
                           std::function<void()> onTap)
    : title_(std::move(title)),
      action_(action),
      area_(
          container, [this](Canvas& canvas, Rect bounds, bool isPressed) { draw(canvas, bounds, isPressed); },
          [onTap = std::move(onTap)](Point) { onTap(); }) {}

void ActionButton::setTitle(std::string title, Action action) {
    if (title == title_ && action == action_)
        return;
    title_ = std::move(title);
    action_ = action;
    area_.setNeedsDisplay();
}

void ActionButton::setEnabled(bool enabled) {
    isEnabled_ = enabled;
    area_.setEnabled(enabled);
}

void ActionButton::draw(Canvas& canvas, Rect bounds, bool isPressed) const {
    const Rect shape = bounds.insetBy(2, 2);
    canvas.fillRounded(shape, std::min(shape.width, shape.height) / 2, fillOf(action_, isPressed));
    const Color lettering = letteringOf(action_);
    const bool isNarrow = shape.width < narrow;
    canvas.drawText(
        title_, shape.insetBy(isNarrow ? 2 : 6, 0),
        {.font = {.size = isNarrow ? 14.0 : 17.0, .weight = Weight::Medium}, .alignment = Alignment::Center},
        isEnabled_ ? lettering : lettering.withAlpha(0.35));
}

} // namespace clockplugin
