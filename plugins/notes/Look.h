// Colours and measures that the screens of the notes share. The dark cards keep white letters readable on the
// light glass, too.
#pragma once

#include "VelaPlugin.h"

namespace notesplugin::look {

inline constexpr vela::plugin::Color card{0, 0, 0, 0.52};
inline constexpr vela::plugin::Color pressedCard{0, 0, 0, 0.78};
inline constexpr vela::plugin::Color secondaryText = vela::plugin::Color::white(1, 0.72);
inline constexpr double cornerRadius = 12;
inline constexpr double gap = 8;
inline constexpr double margin = 10;    // from the panel's sides
inline constexpr double barHeight = 44; // of the row of buttons on top

} // namespace notesplugin::look
