#include "DurationPicker.h"

#include <algorithm>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double bandHeight = 38;

} // namespace

DurationPicker::DurationPicker(Host& host, std::function<void()> onChange)
    : band_(host.addDrawnArea()),
      hours_(host, 24, "h", onChange),
      minutes_(host, 60, "min", onChange),
      seconds_(host, 60, "s", onChange) {
    band_->onDraw([](Canvas& canvas, Rect bounds) { canvas.fillRounded(bounds, 10, colors::fill); });
}

int DurationPicker::seconds() const {
    return hours_.value() * 3600 + minutes_.value() * 60 + seconds_.value();
}

void DurationPicker::setSeconds(int seconds) {
    hours_.setValue(seconds / 3600);
    minutes_.setValue(seconds / 60 % 60);
    seconds_.setValue(seconds % 60);
}

void DurationPicker::setFrame(Rect frame) {
    band_->setFrame({frame.x, frame.center().y - bandHeight / 2, frame.width, bandHeight});
    const double width = frame.width / 3;
    hours_.setFrame({frame.x, frame.y, width, frame.height});
    minutes_.setFrame({frame.x + width, frame.y, width, frame.height});
    seconds_.setFrame({frame.x + 2 * width, frame.y, width, frame.height});
}

void DurationPicker::rest() {
    for (WheelColumn* column : {&hours_, &minutes_, &seconds_})
        column->rest();
}

} // namespace clockplugin
