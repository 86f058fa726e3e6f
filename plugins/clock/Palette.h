// The clock's colours besides those of the panel.
#pragma once

#include "VelaPlugin.h"

namespace clockplugin::palette {

/// Lies behind everything, so that white letters can be read on light glass.
inline constexpr vela::plugin::Color ground{0.07, 0.07, 0.09, 0.62};
inline constexpr vela::plugin::Color quiet = vela::plugin::Color::white(1, 0.72); // text of less weight
inline constexpr vela::plugin::Color softGreen{0.45, 0.93, 0.55, 1};
inline constexpr vela::plugin::Color softRed{1, 0.52, 0.48, 1};

} // namespace clockplugin::palette
