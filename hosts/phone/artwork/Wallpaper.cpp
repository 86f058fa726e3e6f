#include "hosts/phone/artwork/Wallpaper.h"

#include "platform/toolkit/rendering/Canvas.h"

#include <cmath>

using namespace toolkit;

namespace phone {

namespace {

Color hex(unsigned rgb, double alpha = 1) {
    return Color::rgba(((rgb >> 16) & 255) / 255.0, ((rgb >> 8) & 255) / 255.0, (rgb & 255) / 255.0, alpha);
}

void glow(Canvas& canvas, Size size, double x, double y, double radius, Color color) {
    const double extent = std::max(size.width, size.height);
    canvas.fillRadialGradient(
        {0, 0, size.width, size.height}, {x * size.width, y * size.height}, radius * extent,
        {{0, color}, {0.45, color.withAlpha(color.alpha * 0.45)}, {1, color.withAlpha(0)}});
}

struct Hill {
    double height; // of its middle line, in fractions of the picture's height
    double swell;  // of its first wave, likewise
    double phase;
    unsigned top;
    unsigned bottom;
    double opacity;
};

Path outline(const Hill& hill, Size size) {
    const auto y = [&](double t) {
        return size.height * (hill.height + hill.swell * std::sin(t * 4.1 + hill.phase) +
                              hill.swell * 0.45 * std::sin(t * 7.3 + hill.phase * 2.3));
    };
    Path path;
    path.moveTo({0, size.height}).lineTo({0, y(0)});
    constexpr int steps = 96;
    for (int i = 1; i <= steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        path.lineTo({t * size.width, y(t)});
    }
    path.lineTo({size.width, size.height}).close();
    return path;
}

/// A hill fades from its crest's colour into its foot's: the crest's colour lies over the foot's, masked.
void drawHill(Canvas& canvas, const Hill& hill, Size size) {
    const Path path = outline(hill, size);
    const Rect all{0, 0, size.width, size.height};
    const double crest = (hill.height - hill.swell * 1.4) * size.height;
    const double foot = std::min(size.height, crest + size.height * 0.34);
    const Rect band{0, crest, size.width, foot - crest};
    canvas.fillPath(path, hex(hill.bottom, hill.opacity));
    canvas.beginGroup(all, 1, GroupBlend::Normal);
    canvas.fillPath(path, hex(hill.top, hill.opacity));
    canvas.endGroupMasked(band, {0.5, 0}, {0.5, 1}, {{0, Color::black()}, {1, Color::clear()}});
}

} // namespace

std::shared_ptr<const Image> drawWallpaper(Size size, double scale) {
    static constexpr Hill hills[] = {
        {0.63, 0.030, 0.4, 0xE78FA5, 0xB05C9C, 0.55}, {0.69, 0.036, 2.3, 0xC964A0, 0x7D3F96, 0.72},
        {0.76, 0.034, 4.2, 0x8F479F, 0x50308A, 0.86}, {0.83, 0.030, 0.9, 0x5C3A98, 0x2D2370, 0.94},
        {0.91, 0.026, 3.1, 0x36307F, 0x171A4E, 1.0},
    };
    return Image::draw(size, scale, [&](Canvas& canvas) {
        const Rect all{0, 0, size.width, size.height};
        canvas.fillLinearGradient(all, {0, 0}, {0, size.height},
                                  {{0, hex(0x12204F)},
                                   {0.24, hex(0x27408F)},
                                   {0.44, hex(0x6B62B8)},
                                   {0.60, hex(0xE08BAE)},
                                   {0.72, hex(0xFFBE98)},
                                   {1, hex(0xFFD9A8)}});
        glow(canvas, size, 0.74, 0.60, 0.44, hex(0xFFE2B0, 0.85));
        glow(canvas, size, 0.12, 0.42, 0.42, hex(0xB76BD0, 0.40));
        glow(canvas, size, 0.95, 0.18, 0.46, hex(0x2FA4D8, 0.38));
        glow(canvas, size, 0.10, 0.02, 0.40, hex(0x0A0F36, 0.55));
        for (const Hill& hill : hills)
            drawHill(canvas, hill, size);
    });
}

} // namespace phone
