#include "platform/toolkit/layers/LayerAnimations.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

AnimatableValue LayerAnimations::Running::valueAt(double now) const {
    const double elapsed = now - begin;
    if (elapsed <= 0)
        return from;
    if (!(duration > 0) || now >= end())
        return to;
    const double rounds = elapsed / duration;
    return interpolate(from, to, curveValue(curve, rounds - std::floor(rounds)));
}

bool LayerAnimations::isMoving() const {
    return std::any_of(running_.begin(), running_.end(), [](const Running& one) { return !one.ended; });
}

std::optional<AnimatableValue> LayerAnimations::value(LayerProperty property, double now) const {
    for (auto running = running_.rbegin(); running != running_.rend(); ++running)
        if (running->property == property && (now < running->end() || !running->removedOnCompletion))
            return running->valueAt(now);
    return std::nullopt;
}

} // namespace toolkit
