// Colours and measures of the cards. Being dark they keep white letters readable on the light glass, too.
#pragma once

#include "VelaPlugin.h"

namespace systemplugin::look {

inline constexpr vela::plugin::Color card{0, 0, 0, 0.52};
inline constexpr vela::plugin::Color well{1, 1, 1, 0.08}; // what a graph or a bar lies in
inline constexpr vela::plugin::Color secondaryText = vela::plugin::Color::white(1, 0.72);
inline constexpr double cornerRadius = 12;
inline constexpr double gap = 8;
inline constexpr double margin = 10; // from the panel's sides
inline constexpr double inset = 12;  // within a card
inline constexpr double titleHeight = 32;

} // namespace systemplugin::look
