// One property of a layer moving from a value to another, over the layer's model value.
#pragma once

#include "platform/toolkit/animation/AnimatableValue.h"
#include "platform/toolkit/layers/LayerProperty.h"

namespace toolkit {

struct BasicAnimation {
    LayerProperty property;
    AnimatableValue from;
    AnimatableValue to;
    double duration = 0.25; // seconds
    AnimationCurve curve = AnimationCurve::Linear;
    double repeatCount = 1; // may be infinite
    /// Otherwise `to` goes on showing after the end, until the animation is removed by its key.
    bool removedOnCompletion = true;
};

} // namespace toolkit
