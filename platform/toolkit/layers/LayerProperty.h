// The properties of a layer that can be animated.
#pragma once

namespace toolkit {

enum class LayerProperty {
    Bounds,
    Position,
    Transform,
    Opacity,
    BackgroundColor,
    CornerRadius,
    ShadowOpacity,
    BorderColor,
    StrokeStart,
    StrokeEnd,
    Rotation, // radians, a double, turned before the transform; 0 but for a keyed animation
    Count
};

} // namespace toolkit
