// Paints laid out text. Only for the painting canvas.
#pragma once

#include "platform/toolkit/geometry/Color.h"
#include "platform/toolkit/text/TextLayout.h"

#include <cairo.h>

namespace toolkit {

/// Paints `text` with its top left corner at `topLeft` in the user space of `cr`. Glyphs are put on fractions
/// of a pixel; lines outside the clip are left out.
void paintText(cairo_t* cr, const TextLayout::Native& text, Point topLeft, const Color& color);

} // namespace toolkit
