#include "hosts/phone/artwork/CoverArtwork.h"

#include "platform/toolkit/rendering/Canvas.h"

#include <numbers>

using namespace toolkit;

namespace phone {

namespace {

constexpr double unit = 44; // covers are drawn on a square of this side

void drawNote(Canvas& canvas) {
    const Color ink = Color::white(1, 0.92);
    canvas.fillPath(
        Path().moveTo({17.5, 13.5}).lineTo({30.5, 10.8}).lineTo({30.5, 15.3}).lineTo({17.5, 18}).close(),
        ink);
    for (const double x : {18.6, 29.4})
        canvas.strokePath(Path().moveTo({x, x < 20 ? 15.0 : 12.5}).lineTo({x, x < 20 ? 31.0 : 28.5}), 2.2,
                          LineCap::Butt, ink);
    for (const Point head : {Point{16, 31}, Point{26.8, 28.5}}) {
        canvas.save();
        canvas.concat(AffineTransform::rotation(-0.35).then(AffineTransform::translation(head.x, head.y)));
        canvas.fillPath(Path::ellipse({-3.9, -3, 7.8, 6}), ink);
        canvas.restore();
    }
}

void drawWaves(Canvas& canvas) {
    const Color ink = Color::white(1, 0.92);
    canvas.fillPath(Path::ellipse({19.4, 19.4, 5.2, 5.2}), ink);
    for (const double radius : {7.0, 12.0})
        for (const double side : {0.0, std::numbers::pi})
            canvas.strokePath(Path().arc({22, 22}, radius, side - 0.72, side + 0.72), 2.3, LineCap::Round,
                              ink);
}

} // namespace

std::shared_ptr<const Image> drawCover(CoverKind kind, double side, double scale) {
    const bool song = kind == CoverKind::Song;
    return Image::draw({side, side}, scale, [&](Canvas& canvas) {
        canvas.concat(AffineTransform::scale(side / unit, side / unit));
        canvas.fillLinearGradient(
            {0, 0, unit, unit}, {0, 0}, {unit, unit},
            {{0, song ? Color::rgba(0.78, 0.79, 0.84) : Color::rgba(0.55, 0.45, 0.93)},
             {1, song ? Color::rgba(0.60, 0.61, 0.68) : Color::rgba(0.86, 0.32, 0.62)}});
        song ? drawNote(canvas) : drawWaves(canvas);
    });
}

} // namespace phone
