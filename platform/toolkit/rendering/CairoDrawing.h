// Small steps between the toolkit's types and cairo's. Only for the painting canvas and its helpers.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/PixelView.h"

#include <cairo.h>

#include <optional>

namespace toolkit {

cairo_matrix_t cairoMatrix(const AffineTransform& transform);
AffineTransform currentTransform(cairo_t* cr);
/// Keeps cairo, whose coordinates are 24 bits of whole pixels, from numbers that overflow it.
Rect boundedForCairo(const Rect& rect);
void setSource(cairo_t* cr, const Color& color);
void addRect(cairo_t* cr, const Rect& rect);
void addPath(cairo_t* cr, const Path& path);
void addStops(cairo_pattern_t* pattern, const std::vector<GradientStop>& stops);
/// The clip when it is one rectangle of whole pixels, in device coordinates of the surface.
std::optional<PixelRect> clipPixels(cairo_t* cr);
/// All pixels that the clip touches, in device coordinates of the surface.
PixelRect clipExtents(cairo_t* cr);

} // namespace toolkit
