#include "StopwatchPage.h"

#include "DurationText.h"

#include <algorithm>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double frameSeconds = 1.0 / 30;
constexpr double buttonHeight = 54;
constexpr double greatestFontSize = 60;

TextStyle timeStyle(double size) {
    return {.font = {.size = size, .weight = Weight::Light, .monospacedDigits = true},
            .alignment = Alignment::Center};
}

} // namespace

StopwatchPage::StopwatchPage(ClockModel& model)
    : model_(model),
      time_(model.host().addDrawnArea()),
      left_(model.host(), "Lap", Action::Neutral, [this] { lapOrReset(); }),
      right_(model.host(), "Start", Action::Go, [this] { startOrStop(); }),
      laps_(model.host()),
      ticker_(model.host(), [this] { return update(); }) {
    time_->onDraw([this](Canvas& canvas, Rect bounds) { drawTime(canvas, bounds); });
}

void StopwatchPage::layout(Rect area) {
    const bool wide = isWide(area);
    const double width = wide ? area.width * 0.54 : area.width;
    const double timeHeight = wide ? std::max(0.0, std::min(area.height - buttonHeight - 6, 120.0)) : 104;
    time_->setFrame({area.x, area.y, width, timeHeight});
    const double buttons = area.y + timeHeight + 2;
    left_.setFrame({area.x, buttons, width / 2 - 3, buttonHeight});
    right_.setFrame({area.x + width / 2 + 3, buttons, width / 2 - 3, buttonHeight});
    if (wide) {
        laps_.setFrame({area.x + width + 8, area.y, area.width - width - 8, area.height});
    } else {
        const double top = buttons + buttonHeight + 8;
        laps_.setFrame({area.x, top, area.width, std::max(0.0, area.bottom() - top)});
    }
    update();
}

void StopwatchPage::setActive(bool active) {
    isActive_ = active;
    if (active)
        ticker_.start();
    else
        ticker_.stop();
}

std::optional<double> StopwatchPage::update() {
    const Stopwatch& stopwatch = model_.stopwatch;
    const double now = model_.now();
    const bool isRunning = stopwatch.isRunning();
    const std::string text = stopwatchText(stopwatch.elapsed(now));
    if (text != text_) {
        text_ = text;
        time_->setNeedsDisplay();
    }
    left_.setTitle(isRunning || stopwatch.isReset() ? "Lap" : "Reset", Action::Neutral);
    left_.setEnabled(isRunning ? stopwatch.canLap() : !stopwatch.isReset());
    right_.setTitle(isRunning ? "Stop" : "Start", isRunning ? Action::Stop : Action::Go);
    laps_.show(stopwatch, now);
    return isRunning ? std::optional(frameSeconds) : std::nullopt;
}

void StopwatchPage::drawTime(Canvas& canvas, Rect bounds) {
    if (text_.size() != fittedLength_ || bounds.width != fittedWidth_) {
        const double width = model_.host().measure(text_, timeStyle(greatestFontSize)).width;
        fontSize_ = std::min(greatestFontSize, greatestFontSize * (bounds.width - 8) / std::max(1.0, width));
        fittedLength_ = text_.size();
        fittedWidth_ = bounds.width;
    }
    canvas.drawText(text_, bounds, timeStyle(fontSize_), colors::primary);
}

void StopwatchPage::startOrStop() {
    if (model_.stopwatch.isRunning())
        model_.stopwatch.stop(model_.now());
    else
        model_.stopwatch.start(model_.now());
    changed();
}

void StopwatchPage::lapOrReset() {
    if (model_.stopwatch.isRunning())
        model_.stopwatch.lap(model_.now());
    else
        model_.stopwatch.reset();
    changed();
}

void StopwatchPage::changed() {
    model_.keepStopwatch();
    if (isActive_)
        ticker_.start();
    else
        update();
}

} // namespace clockplugin
