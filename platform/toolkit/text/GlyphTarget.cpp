#include "platform/toolkit/text/GlyphTarget.h"

#include "platform/toolkit/text/GlyphCache.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

/// A whole number of quarter pixels as whole pixels and the quarters that are left.
struct Step {
    int pixel;
    int rest;
};

Step stepAt(double position) {
    const double steps = std::round(position * GlyphCache::steps);
    const double pixel = std::floor(steps / GlyphCache::steps);
    return {static_cast<int>(pixel), static_cast<int>(steps - pixel * GlyphCache::steps)};
}

unsigned divide255(unsigned value) {
    value += 128;
    return (value + (value >> 8)) >> 8;
}

} // namespace

std::optional<GlyphTarget> GlyphTarget::of(cairo_t* cr) {
    GlyphTarget target;
    cairo_matrix_t matrix;
    cairo_get_matrix(cr, &matrix);
    target.surface_ = cairo_get_target(cr);
    const bool isPicture = cairo_surface_get_type(target.surface_) == CAIRO_SURFACE_TYPE_IMAGE &&
                           cairo_image_surface_get_format(target.surface_) == CAIRO_FORMAT_ARGB32;
    if (!isPicture || matrix.xy != 0 || matrix.yx != 0 || !(matrix.xx > 0) ||
        std::abs(matrix.yy - matrix.xx) > matrix.xx * 0.01)
        return std::nullopt;
    cairo_save(cr);
    cairo_identity_matrix(cr);
    cairo_rectangle_list_t* clip = cairo_copy_clip_rectangle_list(cr);
    const bool isOneRectangle = clip->status == CAIRO_STATUS_SUCCESS && clip->num_rectangles == 1;
    if (isOneRectangle) {
        const cairo_rectangle_t& rect = clip->rectangles[0];
        target.left_ = std::max(0, static_cast<int>(rect.x));
        target.top_ = std::max(0, static_cast<int>(rect.y));
        target.right_ =
            std::min(cairo_image_surface_get_width(target.surface_), static_cast<int>(rect.x + rect.width));
        target.bottom_ =
            std::min(cairo_image_surface_get_height(target.surface_), static_cast<int>(rect.y + rect.height));
    }
    cairo_rectangle_list_destroy(clip);
    cairo_restore(cr);
    if (!isOneRectangle)
        return std::nullopt;
    cairo_surface_flush(target.surface_);
    target.pixels_ = cairo_image_surface_get_data(target.surface_);
    target.bytesPerRow_ = cairo_image_surface_get_stride(target.surface_);
    target.scale_ = matrix.xx;
    target.moveX_ = matrix.x0;
    target.moveY_ = matrix.y0;
    return target;
}

void GlyphTarget::draw(cairo_scaled_font_t* font, unsigned long index, Point origin,
                       const Color& color) const {
    const double x = origin.x * scale_ + moveX_, y = origin.y * scale_ + moveY_;
    constexpr double farAway = 1e6;
    if (!(std::abs(x) < farAway && std::abs(y) < farAway))
        return;
    const Step across = stepAt(x), down = stepAt(y);
    const GlyphCache::Glyph& glyph = GlyphCache::shared().glyph(font, scale_, index, across.rest, down.rest);
    const int glyphLeft = across.pixel + glyph.left, glyphTop = down.pixel + glyph.top;
    const int fromX = std::max(left_, glyphLeft), toX = std::min(right_, glyphLeft + glyph.width);
    const int fromY = std::max(top_, glyphTop), toY = std::min(bottom_, glyphTop + glyph.height);
    const auto level = [](double value) {
        return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const unsigned alpha = level(color.alpha);
    const unsigned source[4] = {divide255(level(color.blue) * alpha), divide255(level(color.green) * alpha),
                                divide255(level(color.red) * alpha), alpha};
    for (int row = fromY; row < toY; ++row) {
        const std::uint8_t* coverage = glyph.coverage.data() +
                                       static_cast<std::ptrdiff_t>(row - glyphTop) * glyph.width +
                                       (fromX - glyphLeft);
        std::uint8_t* out = pixels_ + static_cast<std::ptrdiff_t>(row) * bytesPerRow_ +
                            static_cast<std::ptrdiff_t>(fromX) * 4;
        for (int column = fromX; column < toX; ++column, ++coverage, out += 4) {
            if (*coverage == 0)
                continue;
            const unsigned kept = 255 - divide255(alpha * *coverage);
            for (int channel = 0; channel < 4; ++channel)
                out[channel] = static_cast<std::uint8_t>(
                    std::min(255u, divide255(source[channel] * *coverage) + divide255(out[channel] * kept)));
        }
    }
}

} // namespace toolkit
