// Colours and measures that the calendar's parts share. The dark cards keep white letters readable on the
// light glass, too.
#pragma once

#include "VelaPlugin.h"

namespace calendarplugin::look {

inline constexpr vela::plugin::Color card{0, 0, 0, 0.52};
inline constexpr vela::plugin::Color secondaryText = vela::plugin::Color::white(1, 0.72);
inline constexpr vela::plugin::Color faintText = vela::plugin::Color::white(1, 0.42);
inline constexpr vela::plugin::Color accent = vela::plugin::colors::red;
inline constexpr double cornerRadius = 12;
inline constexpr double gap = 8;
inline constexpr double margin = 10; // from the panel's sides

} // namespace calendarplugin::look
