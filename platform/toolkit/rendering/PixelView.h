// Pixels that somebody else owns, and where they lie in the target's device coordinates (whole pixels).
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace toolkit {

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int maxX() const { return x + width; }
    int maxY() const { return y + height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    std::int64_t area() const { return isEmpty() ? 0 : static_cast<std::int64_t>(width) * height; }
    bool contains(const PixelRect& other) const {
        return other.x >= x && other.y >= y && other.maxX() <= maxX() && other.maxY() <= maxY();
    }
    bool intersects(const PixelRect& other) const { return !intersection(other).isEmpty(); }
    PixelRect intersection(const PixelRect& other) const {
        const int left = std::max(x, other.x), top = std::max(y, other.y);
        return {left, top, std::max(0, std::min(maxX(), other.maxX()) - left),
                std::max(0, std::min(maxY(), other.maxY()) - top)};
    }
    PixelRect united(const PixelRect& other) const {
        if (isEmpty())
            return other;
        if (other.isEmpty())
            return *this;
        const int left = std::min(x, other.x), top = std::min(y, other.y);
        return {left, top, std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - top};
    }
    Rect rect() const {
        return {static_cast<double>(x), static_cast<double>(y), static_cast<double>(width),
                static_cast<double>(height)};
    }
    /// Every pixel that `rect` touches, cut to a range in which sums of coordinates cannot overflow.
    static PixelRect around(const Rect& rect) {
        static constexpr double limit = 1 << 24;
        // Sums of decimal fractions land beside whole numbers; that must not cost a further row.
        constexpr double tolerance = 1e-6;
        const auto whole = [](double value) { // also of what is no number
            return static_cast<int>(value > -limit ? std::min(value, limit) : -limit);
        };
        const int left = whole(std::floor(rect.x + tolerance)), top = whole(std::floor(rect.y + tolerance));
        return {left, top, std::max(0, whole(std::ceil(rect.maxX() - tolerance)) - left),
                std::max(0, whole(std::ceil(rect.maxY() - tolerance)) - top)};
    }
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Premultiplied pixels: blue, green, red, alpha in memory.
struct PixelView {
    std::uint8_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int bytesPerRow = 0;
    int originX = 0; // device coordinates of the first pixel
    int originY = 0;

    PixelRect rect() const { return {originX, originY, width, height}; }
    /// The pixel at device coordinates, which must lie within.
    std::uint8_t* at(int x, int y) const {
        return pixels + static_cast<std::ptrdiff_t>(y - originY) * bytesPerRow +
               static_cast<std::ptrdiff_t>(x - originX) * 4;
    }
};

} // namespace toolkit
