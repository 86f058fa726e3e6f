#include "hosts/applications/IconArtwork.h"

#include <array>
#include <cmath>
#include <numbers>

using namespace toolkit;

namespace applications {

namespace {

constexpr double unit = 60; // icons are drawn on a square of this side

Color hex(unsigned rgb, double alpha = 1) {
    return Color::rgba(((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0, alpha);
}

void background(Canvas& canvas, unsigned top, unsigned bottom) {
    canvas.fillLinearGradient({0, 0, unit, unit}, {0, 0}, {0, unit}, {{0, hex(top)}, {1, hex(bottom)}});
}

void disc(Canvas& canvas, double x, double y, double radius, Color color) {
    canvas.fillPath(Path::ellipse({x - radius, y - radius, 2 * radius, 2 * radius}), color);
}

void line(Canvas& canvas, Point from, Point to, double width, Color color) {
    canvas.strokePath(Path().moveTo(from).lineTo(to), width, LineCap::Round, color);
}

Point onCircle(Point center, double radius, double turn) {
    const double angle = turn * 2 * std::numbers::pi - std::numbers::pi / 2;
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

void drawMusic(Canvas& canvas) {
    background(canvas, 0xFF6A88, 0xE0266E);
    canvas.fillRadialGradient({0, 0, unit, unit}, {12, 6}, 52,
                              {{0, hex(0xFFB199, 0.85)}, {1, hex(0xFFB199, 0)}});
    for (double radius : {22.0, 16.5})
        canvas.strokePath(Path().arc({30, 30}, radius, 0, 2 * std::numbers::pi), 1.1, LineCap::Butt,
                          Color::white(1, 0.30));
    static constexpr std::array<double, 5> bars{9, 19, 27, 16, 8};
    for (std::size_t i = 0; i < bars.size(); ++i) {
        const double x = 16 + 7.0 * static_cast<double>(i);
        line(canvas, {x, 30 - bars[i] / 2}, {x, 30 + bars[i] / 2}, 3.6, Color::white(1));
    }
}

/// A mast, and what goes out from it.
void drawRadio(Canvas& canvas) {
    background(canvas, 0x9B6BF2, 0x5B2FB8);
    canvas.fillRadialGradient({0, 0, unit, unit}, {44, 4}, 46,
                              {{0, hex(0xFF9AD0, 0.8)}, {1, hex(0xFF9AD0, 0)}});
    for (double radius : {9.0, 15.5, 22.0})
        for (double side : {0.0, std::numbers::pi})
            canvas.strokePath(Path().arc({30, 25}, radius, side - 0.78, side + 0.78), 3, LineCap::Round,
                              Color::white(1, radius < 10   ? 1
                                              : radius < 16 ? 0.85
                                                            : 0.6));
    line(canvas, {30, 25}, {23, 49}, 2.6, Color::white(1));
    line(canvas, {30, 25}, {37, 49}, 2.6, Color::white(1));
    line(canvas, {26.2, 38}, {33.8, 38}, 2.2, Color::white(1));
    disc(canvas, 30, 25, 4, Color::white(1));
}

void drawPhotos(Canvas& canvas) {
    background(canvas, 0x6FD6FF, 0xCFF3F2);
    canvas.fillRadialGradient({0, 0, unit, unit}, {43, 18}, 20, {{0, hex(0xFFF3B8)}, {1, hex(0xFFF3B8, 0)}});
    disc(canvas, 43, 18, 7.2, hex(0xFFC83D));
    canvas.fillPath(Path()
                        .moveTo({-4, 62})
                        .lineTo({-4, 42})
                        .curveTo({8, 24}, {16, 20}, {24, 32})
                        .curveTo({32, 44}, {38, 50}, {46, 62})
                        .close(),
                    hex(0x2FB5A5));
    canvas.fillPath(Path()
                        .moveTo({14, 62})
                        .curveTo({26, 42}, {36, 30}, {44, 37})
                        .curveTo({52, 43}, {58, 50}, {66, 54})
                        .lineTo({66, 62})
                        .close(),
                    hex(0x14858F));
    canvas.fillPath(Path().moveTo({-2, 62}).curveTo({12, 49}, {30, 50}, {62, 57}).lineTo({62, 62}).close(),
                    hex(0x0C5A73));
}

void drawNotes(Canvas& canvas) {
    background(canvas, 0xFFFDF5, 0xF4EEDC);
    canvas.fillLinearGradient({0, 0, unit, 15}, {0, 0}, {0, 15}, {{0, hex(0xFFD54F)}, {1, hex(0xFFB92E)}});
    canvas.fillRect({0, 15, unit, 0.8}, hex(0xD99A1E, 0.6));
    for (double y : {25.5, 34.0, 42.5})
        line(canvas, {11, y}, {y > 42 ? 31.0 : 49.0, y}, 1.5, hex(0x5B5446, 0.32));
    canvas.save();
    canvas.concat(
        AffineTransform::rotation(-std::numbers::pi / 4).then(AffineTransform::translation(43, 43)));
    canvas.fillRoundedRect({-3.4, -3.2, 19, 6.4}, 1.6, hex(0xF2703F));
    canvas.fillRect({11, -3.2, 2.2, 6.4}, hex(0xFFFFFF, 0.7));
    canvas.fillPath(Path().moveTo({-3.4, -3.2}).lineTo({-10, 0}).lineTo({-3.4, 3.2}).close(), hex(0xF3D3A2));
    canvas.fillPath(Path().moveTo({-7.6, -1.15}).lineTo({-10, 0}).lineTo({-7.6, 1.15}).close(),
                    hex(0x4A4338));
    canvas.restore();
}

void drawSettings(Canvas& canvas) {
    background(canvas, 0x6B7A90, 0x2F3A4C);
    static constexpr std::array<double, 3> knobs{38, 21, 33};
    for (std::size_t i = 0; i < knobs.size(); ++i) {
        const double y = 17 + 13.0 * static_cast<double>(i);
        line(canvas, {13, y}, {47, y}, 3, Color::white(1, 0.30));
        line(canvas, {13, y}, {knobs[i], y}, 3, hex(0x7FE3D0));
        canvas.drawShadow({knobs[i] - 5, y - 5, 10, 10}, 5, 2, {0, 1}, Color::rgba(0, 0, 0, 0.35));
        disc(canvas, knobs[i], y, 5, Color::white(1));
    }
}

void drawClock(Canvas& canvas) {
    background(canvas, 0x23283A, 0x0B0D16);
    const Point middle{30, 30};
    disc(canvas, 30, 30, 23.5, Color::white(1));
    for (int hour = 0; hour < 12; ++hour) {
        const double turn = hour / 12.0;
        line(canvas, onCircle(middle, hour % 3 == 0 ? 17.2 : 19, turn), onCircle(middle, 20.4, turn),
             hour % 3 == 0 ? 1.8 : 1.1, hex(0x23283A, hour % 3 == 0 ? 0.9 : 0.45));
    }
    line(canvas, middle, onCircle(middle, 10.5, 10.15 / 12), 2.8, hex(0x1A1E2C));
    line(canvas, middle, onCircle(middle, 15.5, 9.2 / 60), 2.2, hex(0x1A1E2C));
    line(canvas, onCircle(middle, 4, 0.08), onCircle(middle, 17.5, 0.58), 1.1, hex(0xFF7A2F));
    disc(canvas, 30, 30, 2, hex(0xFF7A2F));
}

void drawCalendar(Canvas& canvas) {
    background(canvas, 0xFFFFFF, 0xEEF1F6);
    canvas.fillLinearGradient({0, 0, unit, 18}, {0, 0}, {0, 18}, {{0, hex(0xFF6B5E)}, {1, hex(0xF0443F)}});
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 5; ++column) {
            const bool today = row == 1 && column == 3;
            const double x = 12 + 9.0 * column, y = 28 + 9.5 * row;
            if (today)
                disc(canvas, x, y, 4.4, hex(0xF0443F));
            disc(canvas, x, y, 2.1, today ? Color::white(1) : hex(0x4B5568, 0.55));
        }
    for (double x : {18.0, 42.0})
        line(canvas, {x, 6}, {x, 11}, 3, Color::white(1, 0.85));
}

/// A sheet of paper with nothing on it but its grid.
void drawGeneric(Canvas& canvas) {
    background(canvas, 0xFDFDFD, 0xE6E8EC);
    for (double offset : {15.0, 30.0, 45.0}) {
        line(canvas, {offset, 6}, {offset, 54}, 0.8, hex(0x9AA3B2, 0.55));
        line(canvas, {6, offset}, {54, offset}, 0.8, hex(0x9AA3B2, 0.55));
    }
    for (double radius : {9.0, 17.0})
        canvas.strokePath(Path::ellipse({30 - radius, 30 - radius, 2 * radius, 2 * radius}), 0.9,
                          LineCap::Round, hex(0x9AA3B2, 0.7));
}

void drawPicture(IconKind kind, Canvas& canvas) {
    switch (kind) {
    case IconKind::Music:
        return drawMusic(canvas);
    case IconKind::Radio:
        return drawRadio(canvas);
    case IconKind::Photos:
        return drawPhotos(canvas);
    case IconKind::Notes:
        return drawNotes(canvas);
    case IconKind::Settings:
        return drawSettings(canvas);
    case IconKind::Clock:
        return drawClock(canvas);
    case IconKind::Calendar:
        return drawCalendar(canvas);
    case IconKind::Generic:
        return drawGeneric(canvas);
    }
}

/// The picture's pixels, each as strong as the mask's pixel over it.
std::shared_ptr<const Image> masked(const Image& picture, const Image& mask) {
    std::vector<std::uint8_t> pixels(picture.pixels().begin(), picture.pixels().end());
    for (int y = 0; y < picture.pixelHeight(); ++y)
        for (int x = 0; x < picture.pixelWidth(); ++x) {
            const int alpha = mask.pixels()[static_cast<std::size_t>(y * mask.bytesPerRow() + 4 * x + 3)];
            auto* pixel = &pixels[static_cast<std::size_t>(y * picture.bytesPerRow() + 4 * x)];
            for (int channel = 0; channel < 4; ++channel)
                pixel[channel] = static_cast<std::uint8_t>((pixel[channel] * alpha + 127) / 255);
        }
    return std::make_shared<Image>(picture.pixelWidth(), picture.pixelHeight(), picture.bytesPerRow(),
                                   std::move(pixels), picture.scale());
}

} // namespace

Path continuousCorners(Rect rect) {
    constexpr double exponent = 5;
    constexpr int steps = 160;
    Path path;
    for (int i = 0; i < steps; ++i) {
        const double angle = 2 * std::numbers::pi * i / steps;
        const double c = std::cos(angle), s = std::sin(angle);
        const Point p{
            rect.center().x + rect.width / 2 * std::copysign(std::pow(std::abs(c), 2 / exponent), c),
            rect.center().y + rect.height / 2 * std::copysign(std::pow(std::abs(s), 2 / exponent), s)};
        i == 0 ? path.moveTo(p) : path.lineTo(p);
    }
    return path.close();
}

std::shared_ptr<const Image> drawIcon(IconKind kind, double side, double scale) {
    const auto picture = Image::draw({side, side}, scale, [&](Canvas& canvas) {
        canvas.concat(AffineTransform::scale(side / unit, side / unit));
        drawPicture(kind, canvas);
    });
    const auto mask = Image::draw({side, side}, scale, [&](Canvas& canvas) {
        canvas.fillPath(continuousCorners({0, 0, side, side}), Color::white(1));
    });
    return masked(*picture, *mask);
}

} // namespace applications
