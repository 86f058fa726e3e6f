// What the header cell's bars look like: their colours by number, and the heights of the figure that the
// coloured ones form.
#pragma once

#include "platform/toolkit/geometry/Color.h"

#include <optional>

namespace vela::figure {

inline constexpr int barCount = 50;

/// Of the bar with this number, from 1 to barCount.
toolkit::Color barColor(int number);
/// Of the second bar that lies on the one with this number; nothing when there is none.
std::optional<toolkit::Color> secondBarColor(int number);
/// Height in points of a bar in the figure; nothing for a bar that is no part of it.
std::optional<double> height(const toolkit::Color& color, int number);

} // namespace vela::figure
