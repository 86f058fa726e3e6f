#include "CountdownRing.h"

#include "Palette.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double lineWidth = 9;
constexpr double top = -std::numbers::pi / 2;

} // namespace

CountdownRing::CountdownRing(Host& host) : area_(host.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
}

void CountdownRing::setFrame(Rect frame) {
    area_->setFrame(frame);
    area_->setNeedsDisplay();
}

void CountdownRing::show(Content content) {
    content_ = std::move(content);
    area_->setNeedsDisplay();
}

double CountdownRing::radius() const {
    return std::max(0.0, std::min(area_->frame().width, area_->frame().height) / 2 - lineWidth / 2 - 1);
}

double CountdownRing::circumference() const {
    return 2 * std::numbers::pi * radius();
}

void CountdownRing::draw(Canvas& canvas, Rect bounds) const {
    const Point center = bounds.center();
    const double r = radius();
    Path track;
    track.arc(center, r, 0, 2 * std::numbers::pi);
    canvas.stroke(track, lineWidth, Color::white(1, 0.15));
    if (content_.fraction > 0) {
        Path rest;
        rest.arc(center, r, top, top + 2 * std::numbers::pi * std::min(1.0, content_.fraction));
        canvas.stroke(rest, lineWidth, content_.isPaused ? colors::orange.withAlpha(0.5) : colors::orange);
    }
    const bool isLong = content_.time.size() > 5;
    const double size = r * (isLong ? 0.38 : 0.5);
    canvas.drawText(content_.time, {center.x - r, center.y - size * 0.75, 2 * r, size * 1.3},
                    {.font = {.size = size, .weight = Weight::Light, .monospacedDigits = true},
                     .alignment = Alignment::Center},
                    content_.isPaused ? palette::quiet : colors::primary);
    canvas.drawText(content_.caption, {center.x - r * 0.75, center.y + size * 0.55, r * 1.5, 22},
                    {.font = {.size = 14}, .alignment = Alignment::Center}, palette::quiet);
}

} // namespace clockplugin
