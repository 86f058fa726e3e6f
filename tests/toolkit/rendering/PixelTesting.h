// Looking at single pixels of what was painted.
#pragma once

#include "platform/toolkit/rendering/CairoCanvas.h"

#include <ostream>
#include <vector>

namespace toolkit {

/// A pixel's bytes, premultiplied, in the order in which people name them.
struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Pixel& p) {
        return out << "(" << p.red << ", " << p.green << ", " << p.blue << ", " << p.alpha << ")";
    }
};

inline Pixel pixelAt(const Image& image, int x, int y) {
    const std::uint8_t* at = image.pixels().data() + static_cast<std::ptrdiff_t>(y) * image.bytesPerRow() +
                             static_cast<std::ptrdiff_t>(x) * 4;
    return {at[2], at[1], at[0], at[3]};
}

/// Some pixels and a canvas on them, one pixel a point unless said otherwise.
class Painting {
public:
    Painting(int width, int height, double scale = 1)
        : width_(width),
          height_(height),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4),
          canvas_({pixels_.data(), width, height, width * 4}, scale) {}

    CairoCanvas& canvas() { return canvas_; }
    Pixel at(int x, int y) const {
        const std::uint8_t* at = pixels_.data() + (static_cast<std::ptrdiff_t>(y) * width_ + x) * 4;
        return {at[2], at[1], at[0], at[3]};
    }
    const std::vector<std::uint8_t>& bytes() const { return pixels_; }
    /// Covers everything with one colour.
    Painting& filled(Color color) {
        canvas_.fillRect({-1e4, -1e4, 2e4, 2e4}, color);
        return *this;
    }
    /// The sum of all pixels' alpha, in whole pixels.
    double covered() const {
        double sum = 0;
        for (std::size_t i = 3; i < pixels_.size(); i += 4)
            sum += pixels_[i];
        return sum / 255;
    }

private:
    int width_;
    int height_;
    std::vector<std::uint8_t> pixels_;
    CairoCanvas canvas_;
};

inline Color red() {
    return Color::rgba(1, 0, 0);
}
inline Color blue() {
    return Color::rgba(0, 0, 1);
}
inline Color white() {
    return Color::white(1);
}

} // namespace toolkit
