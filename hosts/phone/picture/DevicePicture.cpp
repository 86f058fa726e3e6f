#include "hosts/phone/picture/DevicePicture.h"

#include <array>
#include <cmath>

namespace phone {

namespace {

using toolkit::Color;
using toolkit::Point;
using toolkit::Rect;
using toolkit::Size;

constexpr double sideBezel = 22;
constexpr double endBezel = 88;
constexpr double cornerRadius = 54;
constexpr double rimWidth = 3.5;
constexpr double homeDiameter = 56;
/// How far the side buttons stand out of the body, and how far they reach into it.
constexpr double buttonStandsOut = 3;
constexpr double buttonReachesIn = 4;
/// Extra reach of the small buttons for fingers and mice.
constexpr double touchReach = 10;

const Color rimColor = Color::white(0.42);
const Color buttonColor = Color::white(0.30);

Rect leftButton(double y, double height) {
    return {-buttonStandsOut, y, buttonStandsOut + buttonReachesIn, height};
}

void fillVertically(toolkit::Canvas& canvas, Rect rect, double radius, Color top, Color bottom) {
    canvas.save();
    canvas.clipRoundedRect(rect, radius);
    canvas.fillLinearGradient(rect, {rect.x, rect.y}, {rect.x, rect.maxY()}, {{0, top}, {1, bottom}});
    canvas.restore();
}

} // namespace

DevicePicture::DevicePicture(Size screenSize)
    : screen_({sideBezel, endBezel}, screenSize),
      bodySize_{screenSize.width + 2 * sideBezel, screenSize.height + 2 * endBezel} {}

Rect DevicePicture::button(Part part) const {
    switch (part) {
    case Part::Home:
        return {bodySize_.width / 2 - homeDiameter / 2, bodySize_.height - endBezel / 2 - homeDiameter / 2,
                homeDiameter, homeDiameter};
    case Part::Lock:
        return {bodySize_.width - buttonReachesIn, 150, buttonStandsOut + buttonReachesIn, 58};
    case Part::VolumeUp:
        return leftButton(196, 54);
    case Part::VolumeDown:
        return leftButton(264, 54);
    case Part::None:
    case Part::Screen:
        break;
    }
    return {};
}

DevicePicture::Part DevicePicture::partAt(Point point) const {
    if (screen_.contains(point))
        return Part::Screen;
    for (const Part part : std::array{Part::Home, Part::Lock, Part::VolumeUp, Part::VolumeDown}) {
        const double reach = part == Part::Home ? 0 : touchReach;
        if (button(part).insetBy(-reach, -reach / 2).contains(point))
            return part;
    }
    return Part::None;
}

void DevicePicture::draw(toolkit::Canvas& canvas) const {
    drawBody(canvas);
    drawFront(canvas);
}

void DevicePicture::drawBody(toolkit::Canvas& canvas) const {
    const Rect body({}, bodySize_);
    canvas.drawShadow(body, cornerRadius, 9, {0, 5}, Color::black().withAlpha(0.45));
    for (const Part part : std::array{Part::Lock, Part::VolumeUp, Part::VolumeDown})
        canvas.fillRoundedRect(button(part), 2, buttonColor);
    fillVertically(canvas, body, cornerRadius, rimColor, Color::white(0.26));
    canvas.fillRoundedRect(body.insetBy(1, 1), cornerRadius - 1, Color::white(0.16));
    fillVertically(canvas, body.insetBy(rimWidth, rimWidth), cornerRadius - rimWidth, Color::white(0.085),
                   Color::white(0.045));
}

void DevicePicture::drawFront(toolkit::Canvas& canvas) const {
    const double middle = bodySize_.width / 2;
    // A seam around the glass of the screen, so that a dark screen still shows where it is.
    canvas.fillRoundedRect(screen_.insetBy(-1.5, -1.5), 2, Color::white(0.0));

    canvas.fillRoundedRect({middle - 30, endBezel * 0.52, 60, 5}, 2.5, Color::white(0.20));
    canvas.fillRoundedRect({middle - 29, endBezel * 0.52 + 0.8, 58, 3.4}, 1.7, Color::white(0.02));
    const Point camera{middle - 52, endBezel * 0.52 + 2.5};
    canvas.fillPath(toolkit::Path::ellipse({camera.x - 5, camera.y - 5, 10, 10}), Color::white(0.14));
    canvas.fillPath(toolkit::Path::ellipse({camera.x - 3.4, camera.y - 3.4, 6.8, 6.8}),
                    Color::rgba(0.05, 0.06, 0.14));
    canvas.fillPath(toolkit::Path::ellipse({camera.x - 2, camera.y - 2.4, 2, 2}),
                    Color::rgba(0.3, 0.36, 0.6, 0.8));

    const Rect home = button(Part::Home);
    canvas.fillPath(toolkit::Path::ellipse(home), Color::white(0.03));
    canvas.strokePath(toolkit::Path::ellipse(home.insetBy(1.25, 1.25)), 2.5, toolkit::LineCap::Butt,
                      Color::white(0.28));
}

} // namespace phone
