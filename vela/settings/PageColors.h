// Colours of the settings pages.
#pragma once

#include "platform/toolkit/geometry/Color.h"

namespace vela::colors {

/// The product's own red.
inline toolkit::Color accent() {
    return toolkit::Color::rgba(1, 72 / 255.0, 95 / 255.0);
}

} // namespace vela::colors
