#include "platform/toolkit/rendering/GroupMixing.h"

#include <cstring>

namespace toolkit {

namespace {

int divide255(int value) {
    value += 128;
    return (value + (value >> 8)) >> 8;
}

// Light text over dark glass: most of what lies beneath gives way, and the rest shines through the letters.
void mixLuminous(std::uint8_t* target, const std::uint8_t* group, int opacity) {
    constexpr int kept = 90; // of 255, of the picture beneath a fully opaque pixel
    const int alpha = divide255(group[3] * opacity);
    const int beneath = 255 - divide255(alpha * (255 - kept));
    const int resultAlpha = alpha + divide255(target[3] * (255 - alpha));
    for (int channel = 0; channel < 3; ++channel) {
        const int sum = divide255(target[channel] * beneath) + divide255(group[channel] * opacity);
        target[channel] = static_cast<std::uint8_t>(std::min(sum, resultAlpha));
    }
    target[3] = static_cast<std::uint8_t>(resultAlpha);
}

// Any text over light glass: what lies beneath, darkened to a third at most, tinted by the text's colour.
void mixBurnt(std::uint8_t* target, const std::uint8_t* group, int opacity) {
    constexpr int strength = 80; // of 255
    const int alpha = divide255(group[3] * opacity);
    const int resultAlpha = alpha + divide255(target[3] * (255 - alpha));
    for (int channel = 0; channel < 3; ++channel) {
        const int color = divide255(group[channel] * opacity);
        const int burnt = divide255(divide255(color * target[channel]) * strength);
        target[channel] = static_cast<std::uint8_t>(
            std::min(divide255(target[channel] * (255 - alpha)) + burnt, resultAlpha));
    }
    target[3] = static_cast<std::uint8_t>(resultAlpha);
}

template <typename Mix>
void mixRows(const PixelView& target, const PixelView& group, PixelRect area, Mix mix) {
    for (int y = area.y; y < area.maxY(); ++y) {
        std::uint8_t* out = target.at(area.x, y);
        const std::uint8_t* in = group.at(area.x, y);
        for (int x = 0; x < area.width; ++x, out += 4, in += 4) {
            // Groups are mostly empty; four pixels are looked at together.
            if (x + 4 <= area.width) {
                std::uint64_t four[2];
                std::memcpy(four, in, sizeof four);
                if ((four[0] | four[1]) == 0) {
                    x += 3;
                    out += 12;
                    in += 12;
                    continue;
                }
            }
            if (in[3] != 0)
                mix(out, in);
        }
    }
}

/// The gradient's factors, 0 to 256, at the middles of `count` pixels from `first` on.
std::vector<std::uint16_t> factors(int first, int count, double from, double to, double maskFrom,
                                   double maskTo, const std::vector<GradientStop>& stops) {
    std::vector<std::uint16_t> result(static_cast<std::size_t>(count), 0);
    for (int i = 0; i < count; ++i) {
        const double middle = first + i + 0.5;
        if (middle < maskFrom || middle >= maskTo)
            continue;
        const double location = from == to ? 1 : (middle - from) / (to - from);
        result[static_cast<std::size_t>(i)] = static_cast<std::uint16_t>(
            std::lround(256 * std::clamp(gradientAlpha(stops, location), 0.0, 1.0)));
    }
    return result;
}

} // namespace

void mixGroup(const PixelView& target, const PixelView& group, PixelRect area, double opacity,
              GroupBlend blend) {
    const int level = static_cast<int>(std::lround(std::clamp(opacity, 0.0, 1.0) * 255));
    if (blend == GroupBlend::VibrancyLight)
        mixRows(target, group, area,
                [level](std::uint8_t* out, const std::uint8_t* in) { mixBurnt(out, in, level); });
    else
        mixRows(target, group, area,
                [level](std::uint8_t* out, const std::uint8_t* in) { mixLuminous(out, in, level); });
}

double gradientAlpha(const std::vector<GradientStop>& stops, double location) {
    if (stops.empty())
        return 0;
    if (location <= stops.front().location)
        return stops.front().color.alpha;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const GradientStop &before = stops[i - 1], &after = stops[i];
        if (location > after.location)
            continue;
        const double width = after.location - before.location;
        const double part = width > 0 ? (location - before.location) / width : 1;
        return before.color.alpha + (after.color.alpha - before.color.alpha) * part;
    }
    return stops.back().color.alpha;
}

bool maskGroup(const PixelView& group, const Rect& mask, Point from, Point to,
               const std::vector<GradientStop>& stops) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const bool vertical = std::abs(to.x - from.x) <= 1e-6 * length,
               horizontal = std::abs(to.y - from.y) <= 1e-6 * length;
    if (!vertical && !horizontal)
        return false;
    static const std::vector<GradientStop> all{{0, Color::black()}};
    const std::vector<std::uint16_t> across =
        factors(group.originX, group.width, from.x, to.x, mask.x, mask.maxX(), vertical ? all : stops);
    const std::vector<std::uint16_t> down =
        factors(group.originY, group.height, from.y, to.y, mask.y, mask.maxY(), vertical ? stops : all);
    const bool evenAcross =
        std::all_of(across.begin(), across.end(), [](int factor) { return factor == 256; });
    for (int y = 0; y < group.height; ++y) {
        std::uint8_t* row = group.pixels + static_cast<std::ptrdiff_t>(y) * group.bytesPerRow;
        const unsigned rowFactor = down[static_cast<std::size_t>(y)];
        if (rowFactor == 0) {
            std::memset(row, 0, static_cast<std::size_t>(group.width) * 4);
        } else if (evenAcross && rowFactor < 256) {
            for (int i = 0; i < group.width * 4; ++i)
                row[i] = static_cast<std::uint8_t>((row[i] * rowFactor + 128) >> 8);
        } else if (!evenAcross) {
            for (int x = 0; x < group.width; ++x, row += 4) {
                const unsigned factor = (across[static_cast<std::size_t>(x)] * rowFactor) >> 8;
                for (int channel = 0; channel < 4; ++channel)
                    row[channel] = static_cast<std::uint8_t>((row[channel] * factor + 128) >> 8);
            }
        }
    }
    return true;
}

} // namespace toolkit
