// Pixels that glyph pictures are laid over directly, past the painting library.
#pragma once

#include "platform/toolkit/geometry/Color.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <cairo.h>

#include <cstdint>
#include <optional>

namespace toolkit {

class GlyphTarget {
public:
    /// What `cr` paints into; nothing when its transform turns, its clip is no rectangle of whole pixels, or
    /// its target is no picture in memory.
    static std::optional<GlyphTarget> of(cairo_t* cr);

    double scale() const { return scale_; }
    /// Lays a glyph over the pixels, standing at `origin` in the user space that `cr` had.
    void draw(cairo_scaled_font_t* font, unsigned long index, Point origin, const Color& color) const;
    /// Tells the painting library that its pixels were changed.
    void finish() const { cairo_surface_mark_dirty(surface_); }

private:
    GlyphTarget() = default;

    cairo_surface_t* surface_ = nullptr; // not owned
    std::uint8_t* pixels_ = nullptr;
    int bytesPerRow_ = 0;
    int left_ = 0; // the clip
    int top_ = 0;
    int right_ = 0;
    int bottom_ = 0;
    double scale_ = 1;
    double moveX_ = 0;
    double moveY_ = 0;
};

} // namespace toolkit
