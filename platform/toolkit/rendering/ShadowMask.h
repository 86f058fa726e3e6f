// The blurred silhouette of a rounded rectangle, as 8-bit coverage. Device pixels.
#pragma once

#include "platform/toolkit/rendering/PixelView.h"

#include <memory>
#include <vector>

namespace toolkit {

class ShadowMask {
public:
    /// For a rectangle of `width` × `height` pixels blurred with the standard deviation `sigma`. Masks of the
    /// same radius and sigma share one small picture whose middle is stretched; it is kept for the next time.
    ShadowMask(int width, int height, double cornerRadius, double sigma);

    /// How far the shadow reaches beyond the rectangle.
    int reach() const { return reach_; }
    /// Rows of `bytesPerRow` bytes with the coverage within `area`, in which (0, 0) is the rectangle's top
    /// left corner; the shadow itself begins at (-reach, -reach).
    std::vector<std::uint8_t> coverage(PixelRect area, int bytesPerRow) const;

    struct Source {
        int width = 0;
        int height = 0;
        double cornerRadius = 0;
        double sigma = 0;
        std::vector<std::uint8_t> pixels;
    };

private:
    int width_;
    int height_;
    int reach_;
    std::shared_ptr<const Source> source_;
};

} // namespace toolkit
