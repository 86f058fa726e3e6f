// A picture: premultiplied 32-bit pixels (blue, green, red, alpha in memory) and the scale that turns pixels
// into points. Immutable once made; shared freely, also between threads.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace toolkit {

class Canvas;

class Image {
public:
    /// Takes over `pixels`, rows `bytesPerRow` apart.
    Image(int width, int height, int bytesPerRow, std::vector<std::uint8_t> pixels, double scale);

    /// A picture of `size` points drawn by `draw` at `scale` pixels a point.
    static std::shared_ptr<const Image> draw(Size size, double scale,
                                             const std::function<void(Canvas&)>& draw);

    int pixelWidth() const { return width_; }
    int pixelHeight() const { return height_; }
    int bytesPerRow() const { return bytesPerRow_; }
    static constexpr int bitsPerPixel = 32;
    double scale() const { return scale_; }
    /// In points.
    Size size() const { return {width_ / scale_, height_ / scale_}; }
    std::span<const std::uint8_t> pixels() const { return pixels_; }

    /// The picture reduced to `width` × `height` pixels, each the average of the area that it stands for.
    std::shared_ptr<const Image> reducedTo(int width, int height) const;

private:
    int width_;
    int height_;
    int bytesPerRow_;
    double scale_;
    std::vector<std::uint8_t> pixels_;
};

} // namespace toolkit
