#include "hosts/phone/artwork/RecordArtwork.h"

#include "platform/toolkit/rendering/Canvas.h"

#include <numbers>

using namespace toolkit;

namespace phone {

namespace {

void disc(Canvas& canvas, Point c, double radius, Color color) {
    canvas.fillPath(Path::ellipse({c.x - radius, c.y - radius, 2 * radius, 2 * radius}), color);
}

void drawVinyl(Canvas& canvas, Point c) {
    disc(canvas, c, 0.46, Color::rgba(0.10, 0.10, 0.13));
    for (double radius = 0.20; radius < 0.45; radius += 0.025)
        canvas.strokePath(Path().arc(c, radius, 0, 2 * std::numbers::pi), 0.003, LineCap::Butt,
                          Color::white(1, 0.10));
    canvas.fillPath(Path().moveTo(c).arc(c, 0.46, -0.55, -0.25).close(), Color::white(1, 0.07));
    canvas.fillPath(Path().moveTo(c).arc(c, 0.46, 0.3, 0.7).close(), Color::white(1, 0.05));
    disc(canvas, c, 0.155, Color::rgba(1.0, 0.76, 0.33));
    disc(canvas, c, 0.020, Color::rgba(0.10, 0.10, 0.13));
}

void drawSleeve(Canvas& canvas) {
    const Rect sleeve{0.02, 0.02, 0.96, 0.94};
    canvas.drawShadow(sleeve, 0.03, 0.03, {0, 0.015}, Color::rgba(0, 0, 0, 0.35));
    canvas.save();
    canvas.clipRoundedRect(sleeve, 0.03);
    canvas.fillLinearGradient(sleeve, {0, 0}, {1, 1},
                              {{0, Color::rgba(1.0, 0.52, 0.45)},
                               {0.55, Color::rgba(0.90, 0.20, 0.48)},
                               {1, Color::rgba(0.42, 0.16, 0.58)}});
    for (int i = 0; i < 4; ++i)
        disc(canvas, {0.30, 0.78}, 0.62 - 0.14 * i, Color::white(1, 0.10));
    disc(canvas, {0.72, 0.27}, 0.10, Color::rgba(1.0, 0.87, 0.55, 0.95));
    canvas.restore();
}

} // namespace

std::shared_ptr<const Image> drawRecord(double sleeveSide, double scale) {
    return Image::draw({sleeveSide * recordAspect, sleeveSide}, scale, [&](Canvas& canvas) {
        canvas.concat(AffineTransform::scale(sleeveSide, sleeveSide));
        drawVinyl(canvas, {0.92, 0.49});
        drawSleeve(canvas);
    });
}

} // namespace phone
