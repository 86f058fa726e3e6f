// A picture's colour in one value.
#pragma once

#include "platform/toolkit/geometry/Color.h"
#include "platform/toolkit/rendering/Image.h"

namespace vela {

/// The picture squeezed into one pixel by the drawing library; alpha 1. Components are bytes over 255 in
/// single precision.
toolkit::Color mergedColor(const toolkit::Image& image);

/// The mean of all pixels' first three bytes, taken as red, green and blue in that order; alpha 1. The sums
/// are 32 bits wide and wrap around on very large pictures.
toolkit::Color averageColor(const toolkit::Image& image);

} // namespace vela
