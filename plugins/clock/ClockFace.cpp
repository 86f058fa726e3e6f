#include "ClockFace.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace clockplugin {

using namespace vela::plugin;

namespace {

/// On the face, `turn` of the way round from the top.
Point pointAt(Point center, double radius, double turn) {
    const double angle = (turn - 0.25) * 2 * std::numbers::pi;
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

void drawHand(Canvas& canvas, Point center, double length, double turn, double width, Color color) {
    Path hand;
    hand.moveTo(pointAt(center, -length * 0.16, turn)).lineTo(pointAt(center, length, turn));
    canvas.stroke(hand, width, color);
}

void drawMarks(Canvas& canvas, Point center, double radius, Color color) {
    for (int hour = 0; hour < 12; ++hour) {
        const bool isQuarter = hour % 3 == 0;
        Path mark;
        mark.moveTo(pointAt(center, radius * (isQuarter ? 0.8 : 0.86), hour / 12.0))
            .lineTo(pointAt(center, radius * 0.92, hour / 12.0));
        canvas.stroke(mark, radius * (isQuarter ? 0.06 : 0.035), color.withAlpha(isQuarter ? 0.9 : 0.5));
    }
}

} // namespace

void drawClockFace(Canvas& canvas, Rect rect, const ZonedTime& time, SecondHand secondHand) {
    const double radius = std::min(rect.width, rect.height) / 2;
    const Point center = rect.center();
    const bool isNight = time.isNight();
    const Color ink = isNight ? Color::white(1) : Color{0.1, 0.11, 0.14, 1};
    canvas.fillEllipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius},
                       isNight ? Color{0.13, 0.14, 0.2, 1} : Color::white(0.96));
    drawMarks(canvas, center, radius, ink);
    const double minutes = time.minute + time.second / 60.0;
    drawHand(canvas, center, radius * 0.5, (time.hour % 12 + minutes / 60) / 12, radius * 0.09, ink);
    drawHand(canvas, center, radius * 0.76, minutes / 60, radius * 0.065, ink);
    if (secondHand == SecondHand::With)
        drawHand(canvas, center, radius * 0.84, time.second / 60.0, radius * 0.03, colors::orange);
    const double hub = radius * 0.07;
    canvas.fillEllipse({center.x - hub, center.y - hub, 2 * hub, 2 * hub}, colors::orange);
}

} // namespace clockplugin
