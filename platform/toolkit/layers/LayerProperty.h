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
    Count
};

} // namespace toolkit
