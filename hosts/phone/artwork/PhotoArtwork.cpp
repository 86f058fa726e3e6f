#include "hosts/phone/artwork/PhotoArtwork.h"

#include "platform/toolkit/rendering/Canvas.h"

#include <array>
#include <cmath>
#include <numbers>
#include <random>

using namespace toolkit;

namespace phone {

namespace {

Color hex(unsigned rgb, double alpha = 1) {
    return Color::rgba(((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0, alpha);
}

/// Colours of one picture: sky from top to horizon, light, and ground from far to near.
struct Palette {
    unsigned skyTop, skyBottom, light, far, near;
};

constexpr std::array<Palette, 8> palettes{{
    {0x3BA4F0, 0xCDEFFC, 0xFFFBE0, 0x66BFA0, 0x1E7A5C},
    {0x5F4BB6, 0xFF9E80, 0xFFE3A3, 0xB4557E, 0x4B2558},
    {0x12B5CB, 0xC9F5E6, 0xFFFFFF, 0x2E93B8, 0x0A4F78},
    {0xF58B54, 0xFFE29A, 0xFFF8D6, 0xD9713F, 0x803A2E},
    {0x7FC8F8, 0xFDF0D5, 0xFFFFFF, 0x9CC069, 0x40762F},
    {0xE86A92, 0xFFD3C4, 0xFFF1D8, 0xA8457D, 0x54265F},
    {0x1D3B72, 0x6FA9D8, 0xFDF6D0, 0x2A5A87, 0x10294B},
    {0xA0D8F1, 0xFFF5E1, 0xFFE9A8, 0xF2B872, 0xC07A3E},
}};

/// Random numbers that are the same on every machine.
class Dice {
public:
    explicit Dice(int seed) : engine_(static_cast<std::uint32_t>(seed) * 2654435761u + 12345u) {}
    double between(double low, double high) { return low + (high - low) * (engine_() / 4294967296.0); }

private:
    std::mt19937 engine_;
};

Color mix(Color a, Color b, double t) {
    return Color::rgba(a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t,
                       a.blue + (b.blue - a.blue) * t);
}

/// Everything is drawn on the unit square.
const Rect square{0, 0, 1, 1};

void drawSky(Canvas& canvas, const Palette& palette, Dice& dice, double horizon) {
    canvas.fillLinearGradient(square, {0, 0}, {0, horizon},
                              {{0, hex(palette.skyTop)}, {1, hex(palette.skyBottom)}});
    const Point sun{dice.between(0.2, 0.8), dice.between(0.2, horizon - 0.12)};
    const Color light = hex(palette.light);
    canvas.fillRadialGradient(square, sun, 0.55, {{0, light.withAlpha(0.8)}, {1, light.withAlpha(0)}});
    canvas.fillPath(Path::ellipse({sun.x - 0.055, sun.y - 0.055, 0.11, 0.11}), light);
}

Path ridge(Dice& dice, double height, double roughness, double frequency) {
    const double phase = dice.between(0, 6), second = dice.between(0, 6);
    Path path;
    path.moveTo({0, 1.01});
    for (int i = 0; i <= 60; ++i) {
        const double t = i / 60.0;
        path.lineTo({t, height + roughness * std::sin(t * frequency + phase) +
                            roughness * 0.5 * std::sin(t * frequency * 2.3 + second)});
    }
    return path.lineTo({1, 1.01}).close();
}

void drawHills(Canvas& canvas, const Palette& palette, Dice& dice) {
    drawSky(canvas, palette, dice, 0.62);
    for (int layer = 0; layer < 4; ++layer) {
        const double depth = layer / 3.0;
        canvas.fillPath(ridge(dice, 0.50 + 0.13 * layer, 0.05 - 0.006 * layer, 3.5 + layer),
                        mix(hex(palette.far), hex(palette.near), depth));
    }
}

void drawPeak(Canvas& canvas, Dice& dice, Point top, double spread, Color rock) {
    canvas.fillPath(Path().moveTo(top).lineTo({top.x + spread, 1}).lineTo({top.x - spread, 1}).close(), rock);
    const double snow = 0.26, drop = (1 - top.y) * snow, side = spread * snow;
    canvas.fillPath(Path()
                        .moveTo(top)
                        .lineTo({top.x + side, top.y + drop})
                        .lineTo({top.x + side * dice.between(0.25, 0.45), top.y + drop * 0.72})
                        .lineTo({top.x, top.y + drop * 1.05})
                        .lineTo({top.x - side * dice.between(0.3, 0.5), top.y + drop * 0.7})
                        .lineTo({top.x - side, top.y + drop})
                        .close(),
                    Color::white(1, 0.92));
}

void drawMountains(Canvas& canvas, const Palette& palette, Dice& dice) {
    drawSky(canvas, palette, dice, 0.8);
    const Color far = hex(palette.far), near = hex(palette.near);
    drawPeak(canvas, dice, {dice.between(0.1, 0.35), dice.between(0.34, 0.42)}, 0.55,
             mix(far, hex(palette.skyBottom), 0.25));
    drawPeak(canvas, dice, {dice.between(0.6, 0.85), dice.between(0.28, 0.38)}, 0.6, far);
    canvas.fillPath(ridge(dice, 0.80, 0.03, 5), mix(far, near, 0.6));
    canvas.fillPath(ridge(dice, 0.90, 0.02, 7), near);
}

void drawSea(Canvas& canvas, const Palette& palette, Dice& dice) {
    const double horizon = dice.between(0.5, 0.6);
    drawSky(canvas, palette, dice, horizon);
    canvas.fillLinearGradient({0, horizon, 1, 1 - horizon}, {0, horizon}, {0, 1},
                              {{0, hex(palette.far)}, {1, hex(palette.near)}});
    for (int i = 0; i < 16; ++i) {
        const double y = dice.between(horizon + 0.01, 0.98),
                     width = dice.between(0.05, 0.3) * (y - horizon + 0.25);
        canvas.fillRoundedRect({dice.between(0, 1 - width), y, width, 0.007}, 0.0035,
                               hex(palette.light, 0.4));
    }
    const double x = dice.between(0.2, 0.7);
    canvas.fillPath(Path()
                        .moveTo({x, horizon + 0.02})
                        .lineTo({x + 0.02, horizon - 0.13})
                        .lineTo({x + 0.09, horizon + 0.02})
                        .close(),
                    Color::white(1));
    canvas.fillPath(Path()
                        .moveTo({x - 0.03, horizon + 0.03})
                        .lineTo({x + 0.11, horizon + 0.03})
                        .lineTo({x + 0.085, horizon + 0.055})
                        .lineTo({x, horizon + 0.055})
                        .close(),
                    hex(palette.near));
}

void drawBalloons(Canvas& canvas, const Palette& palette, Dice& dice) {
    drawSky(canvas, palette, dice, 0.85);
    static constexpr unsigned colors[] = {0xF2545B, 0xFFC145, 0x38B2AC, 0x6C63FF};
    for (int i = 0; i < 3; ++i) {
        const double radius = dice.between(0.07, 0.14);
        const Point c{0.18 + 0.3 * i + dice.between(-0.04, 0.04), dice.between(0.2, 0.55)};
        const Color color = hex(colors[static_cast<std::size_t>(dice.between(0, 3.99))]);
        canvas.fillPath(Path()
                            .moveTo({c.x - radius * 0.92, c.y + radius * 0.4})
                            .lineTo({c.x + radius * 0.92, c.y + radius * 0.4})
                            .lineTo({c.x + radius * 0.2, c.y + radius * 1.35})
                            .lineTo({c.x - radius * 0.2, c.y + radius * 1.35})
                            .close(),
                        color);
        canvas.fillPath(Path::ellipse({c.x - radius, c.y - radius, 2 * radius, 2 * radius}), color);
        canvas.fillPath(Path::ellipse({c.x - radius * 0.42, c.y - radius, 0.84 * radius, 2 * radius}),
                        Color::white(1, 0.28));
        canvas.fillRoundedRect({c.x - radius * 0.2, c.y + radius * 1.5, radius * 0.4, radius * 0.3},
                               radius * 0.08, hex(0x7A4B2A));
    }
    canvas.fillPath(ridge(dice, 0.86, 0.03, 4), hex(palette.far));
    canvas.fillPath(ridge(dice, 0.93, 0.02, 6), hex(palette.near));
}

void drawPetals(Canvas& canvas, const Palette& palette, Dice& dice) {
    canvas.fillLinearGradient(square, {0, 0}, {1, 1},
                              {{0, hex(palette.skyBottom)}, {1, hex(palette.skyTop)}});
    const Point c{dice.between(0.4, 0.6), dice.between(0.42, 0.58)};
    const int petals = 8 + static_cast<int>(dice.between(0, 5));
    for (int ring = 0; ring < 2; ++ring)
        for (int i = 0; i < petals; ++i) {
            canvas.save();
            canvas.concat(AffineTransform::rotation(2 * std::numbers::pi * (i + 0.5 * ring) / petals)
                              .then(AffineTransform::translation(c.x, c.y)));
            const double reach = ring == 0 ? 0.40 : 0.28;
            canvas.fillPath(Path::ellipse({-0.065, -reach, 0.13, reach}),
                            mix(hex(palette.near), hex(palette.far), ring).withAlpha(0.82));
            canvas.restore();
        }
    canvas.fillPath(Path::ellipse({c.x - 0.085, c.y - 0.085, 0.17, 0.17}), hex(palette.light));
}

void drawCity(Canvas& canvas, const Palette& palette, Dice& dice) {
    drawSky(canvas, palette, dice, 0.9);
    for (int layer = 0; layer < 2; ++layer) {
        const Color wall =
            layer == 0 ? mix(hex(palette.far), hex(palette.skyBottom), 0.35) : hex(palette.near);
        double x = -0.02;
        while (x < 1) {
            const double width = dice.between(0.08, 0.16), top = dice.between(0.38, 0.62) + 0.13 * layer;
            canvas.fillRect({x, top, width, 1 - top}, wall);
            for (double y = top + 0.03; layer == 1 && y < 0.97; y += 0.055)
                for (double wx = x + 0.018; wx < x + width - 0.02; wx += 0.032)
                    if (dice.between(0, 1) < 0.6)
                        canvas.fillRect({wx, y, 0.014, 0.026}, hex(palette.light, 0.85));
            x += width + dice.between(0.004, 0.02);
        }
    }
}

using Painter = void (*)(Canvas&, const Palette&, Dice&);

struct Motif {
    Painter paint;
    const char* title;
};

constexpr std::array<Motif, 6> motifs{{{drawHills, "Rolling hills"},
                                       {drawSea, "Sailing"},
                                       {drawMountains, "First snow"},
                                       {drawPetals, "Dahlia"},
                                       {drawBalloons, "Balloons"},
                                       {drawCity, "Downtown"}}};

const Motif& motifOf(int number) {
    // Rows of a grid of four do not repeat the row above.
    return motifs[static_cast<std::size_t>(number + number / 5) % motifs.size()];
}

} // namespace

std::shared_ptr<const Image> drawPhoto(int number, Size size, double scale) {
    const Palette& palette = palettes[static_cast<std::size_t>(number * 5 + number / 7) % palettes.size()];
    return Image::draw(size, scale, [&](Canvas& canvas) {
        // The square motif fills the picture and is cropped on its shorter side.
        const double side = std::max(size.width, size.height);
        canvas.concat(
            AffineTransform::scale(side, side)
                .then(AffineTransform::translation((size.width - side) / 2, (size.height - side) / 2)));
        Dice dice(number);
        motifOf(number).paint(canvas, palette, dice);
    });
}

std::string photoTitle(int number) {
    return motifOf(number).title;
}

} // namespace phone
