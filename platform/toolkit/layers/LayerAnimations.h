// The running animations of one layer.
#pragma once

#include "platform/toolkit/animation/AnimatableValue.h"
#include "platform/toolkit/layers/LayerProperty.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace toolkit {

class AnimationGroup;

class LayerAnimations {
public:
    struct Running {
        LayerProperty property;
        AnimatableValue from;
        AnimatableValue to;
        double begin = 0; // run loop time, seconds
        double duration = 0;
        AnimationCurve curve = AnimationCurve::EaseInOut;
        double repeatCount = 1;
        std::string key;                       // empty for a view animation
        std::shared_ptr<AnimationGroup> group; // null for a keyed one
    };

    /// What the newest animation of `property` shows at `now`; nothing when there is none.
    std::optional<AnimatableValue> value(LayerProperty property, double now) const;
    std::vector<Running>& running() { return running_; }
    const std::vector<Running>& running() const { return running_; }

private:
    std::vector<Running> running_;
};

} // namespace toolkit
