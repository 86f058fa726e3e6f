#include "WheelColumn.h"

#include "Palette.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double tapDistance = 6;
constexpr double frameSeconds = 1.0 / 60;
constexpr double numberWidth = 36;
constexpr double narrow = 72;         // points of width, below which the unit's letters are smaller
constexpr double rowsToTheEdge = 3.2; // where the bend of the wheel ends

/// How far the numbers stand left of the middle, for the unit beside them.
double asideIn(Rect bounds) {
    return bounds.width < narrow ? 16 : 8;
}

} // namespace

WheelColumn::WheelColumn(Host& host, int count, std::string unit, std::function<void()> onChange)
    : host_(host),
      wheel_(count),
      unit_(std::move(unit)),
      onChange_(std::move(onChange)),
      area_(host.addDrawnArea()),
      rolling_(host, [this] { return roll(); }) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void WheelColumn::setValue(int value) {
    rolling_.stop();
    wheel_.setValue(value);
    area_->setNeedsDisplay();
}

void WheelColumn::setFrame(Rect frame) {
    area_->setFrame(frame);
    area_->setNeedsDisplay();
}

void WheelColumn::rest() {
    drag_.reset();
    setValue(wheel_.value());
}

std::optional<double> WheelColumn::roll() {
    area_->setNeedsDisplay();
    return wheel_.isRolling(host_.now()) ? std::optional(frameSeconds) : std::nullopt;
}

void WheelColumn::draw(Canvas& canvas, Rect bounds) const {
    canvas.clip(bounds);
    const double position = wheel_.position(host_.now());
    const int middle = static_cast<int>(std::lround(position));
    const int rows = static_cast<int>(rowsToTheEdge);
    for (int row = middle - rows; row <= middle + rows; ++row)
        drawNumber(canvas, bounds, (row + wheel_.count()) % wheel_.count(), row - position);
    const double left = bounds.center().x - asideIn(bounds) + numberWidth / 2 + 4;
    canvas.drawText(unit_, {left, bounds.center().y - 14, bounds.right() - left, 31},
                    {.font = {.size = bounds.width < narrow ? 11.0 : 15.0, .weight = Weight::Medium}},
                    palette::quiet);
}

void WheelColumn::drawNumber(Canvas& canvas, Rect bounds, int number, double rowsBelow) const {
    const double turn = rowsBelow / rowsToTheEdge;
    if (std::abs(turn) >= 1)
        return;
    const double bend = turn * std::numbers::pi / 2;
    const double y = bounds.center().y + std::sin(bend) * rowsToTheEdge * rowHeight * 0.72;
    const double nearness = std::clamp(1 - std::abs(rowsBelow), 0.0, 1.0);
    canvas.save();
    canvas.translate(bounds.center().x - asideIn(bounds), y);
    canvas.scale(1, std::cos(bend));
    canvas.drawText(std::to_string(number), {-numberWidth / 2, -rowHeight / 2, numberWidth, rowHeight},
                    {.font = {.size = 25, .monospacedDigits = true}, .alignment = Alignment::Right},
                    Color::white(1, (0.5 + 0.5 * nearness) * std::cos(bend)));
    canvas.restore();
}

void WheelColumn::touched(const Touch& touch) {
    if (touch.phase == TouchPhase::Began && !drag_) {
        rolling_.stop();
        const bool wasRolling = wheel_.isRolling(host_.now());
        drag_ = Drag{touch.finger, touch.point.y, !wasRolling};
        wheel_.grab(host_.now());
    }
    if (!drag_ || drag_->finger != touch.finger)
        return;
    if (touch.phase == TouchPhase::Ended || touch.phase == TouchPhase::Cancelled)
        return letGo(touch);
    const double distance = drag_->startY - touch.point.y;
    if (std::abs(distance) > tapDistance)
        drag_->isTap = false;
    if (!drag_->isTap)
        wheel_.drag(distance / rowHeight, host_.now());
    area_->setNeedsDisplay();
}

void WheelColumn::letGo(const Touch& touch) {
    const Drag drag = *std::exchange(drag_, std::nullopt);
    wheel_.release(host_.now());
    if (drag.isTap && touch.phase == TouchPhase::Ended) {
        const double rows = (touch.point.y - area_->frame().height / 2) / rowHeight;
        wheel_.step(static_cast<int>(std::clamp(std::round(rows), -3.0, 3.0)), host_.now());
    }
    rolling_.start();
    onChange_();
}

} // namespace clockplugin
