// How the pixels of a group meet those beneath, for the mixtures that the painting library lacks.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/PixelView.h"

namespace toolkit {

/// Lays `group` over `target` within `area` (device pixels, within both). Dark vibrancy adds the group's
/// light to a weakened picture beneath, light vibrancy burns the group into it.
void mixGroup(const PixelView& target, const PixelView& group, PixelRect area, double opacity,
              GroupBlend blend);

/// Multiplies `group` by the alpha of a linear gradient from `from` to `to` (device coordinates) within
/// `mask`, and by nothing at all, which clears it, outside. Only for gradients along one axis; answers
/// whether it is.
bool maskGroup(const PixelView& group, const Rect& mask, Point from, Point to,
               const std::vector<GradientStop>& stops);

/// The alpha of a gradient at `location` along it; what lies before the first stop or after the last is
/// theirs.
double gradientAlpha(const std::vector<GradientStop>& stops, double location);

} // namespace toolkit
