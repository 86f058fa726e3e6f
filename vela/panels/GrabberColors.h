// The two backgrounds of a grabber strip.
#pragma once

#include "platform/toolkit/geometry/Color.h"

#include <limits>

namespace vela {

/// Cannot be seen, yet catches touches: as good as black, at a hundredth's alpha.
inline toolkit::Color grabberTint() {
    return toolkit::Color::white(std::numeric_limits<double>::min(), 0.01);
}
/// Lets touches through to what lies below.
inline toolkit::Color grabberClear() {
    return toolkit::Color::clear();
}

} // namespace vela
