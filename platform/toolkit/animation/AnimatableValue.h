// The values that animations move between, and how.
#pragma once

#include "platform/toolkit/geometry/AffineTransform.h"
#include "platform/toolkit/geometry/Color.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <variant>

namespace toolkit {

using AnimatableValue = std::variant<double, Point, Size, Rect, AffineTransform, Color>;

enum class AnimationCurve { EaseInOut, EaseIn, EaseOut, Linear };

/// Progress after `t` (0 to 1) of an animation's time. The eased ones are cubic Bézier curves with the
/// classic control points: ease-in (0.42, 0)–(1, 1), ease-out (0, 0)–(0.58, 1), both (0.42, 0)–(0.58, 1).
double curveValue(AnimationCurve curve, double t);
/// Component by component; both values are of one type.
AnimatableValue interpolate(const AnimatableValue& from, const AnimatableValue& to, double progress);

} // namespace toolkit
