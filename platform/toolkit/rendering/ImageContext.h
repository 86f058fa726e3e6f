// A bitmap to draw a picture into, and to read bytes from.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <array>

namespace toolkit {

enum class InterpolationQuality { Default = 0, None = 1, Low = 2, High = 3, Medium = 4 };
enum class BlendMode { Normal = 0, Copy = 17 };

class ImageContext {
public:
    /// `size` in points; the bitmap has size × scale pixels, all clear.
    ImageContext(Size size, bool opaque, double scale);

    void setInterpolationQuality(InterpolationQuality quality) { quality_ = quality; }
    /// Draws the whole picture into `rect`. A picture that is made smaller is averaged over the area of each
    /// pixel unless the quality is None.
    void draw(const Image& image, Rect rect, BlendMode mode, double alpha);
    /// The pixel's four bytes: blue, green, red, alpha, premultiplied.
    std::array<std::uint8_t, 4> pixel(int x, int y) const;
    std::shared_ptr<const Image> image() const;

private:
    int width_;
    int height_;
    double scale_;
    InterpolationQuality quality_ = InterpolationQuality::Default;
    std::vector<std::uint8_t> pixels_;
};

} // namespace toolkit
