// The running animations of one layer.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/animation/AnimatableValue.h"
#include "platform/toolkit/layers/LayerProperty.h"

#include <cstdint>
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
        double begin = 0; // run loop time, seconds; `from` is shown until then
        double duration = 0;
        AnimationCurve curve = AnimationCurve::EaseInOut;
        double repeatCount = 1;
        bool removedOnCompletion = true;
        bool ended = false;                          // and kept, for what it shows
        std::string key;                             // empty for a view animation
        std::shared_ptr<AnimationGroup> group;       // null for a keyed one
        std::shared_ptr<AnimationGroup> transaction; // that waits for this one, or null
        std::shared_ptr<foundation::Handle> expiry;  // the timer that ends a keyed one
        std::uint64_t serial = 0;                    // unique in the process's life

        /// When the model value shows again; infinite for an endless one.
        double end() const { return begin + duration * repeatCount; }
        /// What is shown at `now`; the value at the end from end() on.
        AnimatableValue valueAt(double now) const;
    };

    /// What the newest animation of `property` shows at `now`; nothing when there is none.
    std::optional<AnimatableValue> value(LayerProperty property, double now) const;
    /// Whether any of them still changes what is shown.
    bool isMoving() const;
    std::vector<Running>& running() { return running_; }
    const std::vector<Running>& running() const { return running_; }

private:
    std::vector<Running> running_;
};

} // namespace toolkit
