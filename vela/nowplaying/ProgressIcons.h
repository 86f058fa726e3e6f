// The outlines of a progress indicator's icons, to be filled, in a square of twice the half-width, points.
#pragma once

#include "platform/toolkit/rendering/Path.h"

namespace vela {

toolkit::Path tickPath(double halfWidth);
toolkit::Path crossPath(double halfWidth);

} // namespace vela
