// A curve over the last minute: the newest value at the right edge, gaps where nothing was measured.
#pragma once

#include "History.h"

#include "VelaPlugin.h"

#include <vector>

namespace systemplugin {

/// The points of the unbroken pieces of the curve in `area`, for the minute that ends at `now`. `top` is the
/// value at the upper edge; values beyond it lie on that edge.
std::vector<std::vector<vela::plugin::Point>> graphPieces(const History& history, double now, double top,
                                                          vela::plugin::Rect area);

/// A line above a softly filled area.
void drawGraph(vela::plugin::Canvas& canvas, const History& history, double now, double top,
               vela::plugin::Rect area, vela::plugin::Color color);

/// The upper edge for values up to `largest`: 1, 2 or 5 times a power of ten, and at least `least`.
double roundedTop(double largest, double least);

} // namespace systemplugin
