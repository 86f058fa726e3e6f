// View animations: a block of changes that the screen follows over a while.
//
// Model values change at once. A property that is set again, plainly or by a newer animation, leaves the
// older animation at the value shown at that moment; that older animation's completion then gets finished =
// false. Every completion runs exactly once, on the main loop, at the exact end of the last of its changes
// (in the next turn when nothing changed or the duration is 0). Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/animation/BasicAnimation.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace toolkit {

class Layer;

using AnimationCompletion = std::function<void(bool finished)>;

/// One call of animate(): shared by the changes made in its block.
class AnimationGroup {
public:
    AnimationGroup(double duration, double delay, AnimationCurve curve, AnimationCompletion completion);

private:
    friend class AnimationEngine;
    double duration_;
    double delay_;
    AnimationCurve curve_;
    AnimationCompletion completion_;
    std::shared_ptr<AnimationGroup> transaction_; // that the group was opened in, or null
    foundation::Handle timer_;
    int running_ = 0;
    bool open_ = true; // its block is still running
    bool interrupted_ = false;
    bool ended_ = false;
};

class AnimationEngine {
public:
    static AnimationEngine& shared();

    void animate(double duration, double delay, AnimationCurve curve, const std::function<void()>& changes,
                 AnimationCompletion completion);
    /// Runs `changes` without animating them, also inside an animation block.
    void withoutAnimation(const std::function<void()>& changes);

    /// Layer::willSet's work: records a change inside a block, or ends the property's animations.
    void layerWillSet(Layer& layer, LayerProperty property, const AnimatableValue& newValue);
    void layerWillDisappear(Layer& layer);
    /// Adds one keyed animation, replacing the one of the same key.
    void addKeyed(Layer& layer, const std::string& key, const BasicAnimation& animation);
    void removeKeyed(Layer& layer, const std::string& key);
    /// What performTransaction() does.
    void transact(bool disableActions, const std::function<void()>& changes,
                  std::function<void()> completion);

    /// True while anything on screen moves by itself, so that frames are due.
    bool isAnimating() const;
    bool insideBlock() const;

private:
    AnimationEngine();
    bool isRecording() const;
    void record(Layer& layer, LayerProperty property, const AnimatableValue& from, const AnimatableValue& to);
    void interrupt(Layer& layer, LayerProperty property, const AnimatableValue* newTarget);
    /// How a change of a group comes to be shown no longer: set once more by its own block or at its end, or
    /// taken by somebody else.
    enum class Loss { Harmless, TakenToSameValue, Taken };
    void groupLost(const std::shared_ptr<AnimationGroup>& group, Loss loss);
    void closeGroup(const std::shared_ptr<AnimationGroup>& group);
    void endGroup(const std::shared_ptr<AnimationGroup>& group);
    void endSoon(const std::shared_ptr<AnimationGroup>& group);
    void transactionLost(const std::shared_ptr<AnimationGroup>& transaction);
    void keyedEnded(Layer& layer, std::uint64_t serial);
    void dropKeyed(Layer& layer, std::uint64_t serial);
    void forgetIfIdle(Layer& layer);

    struct State;
    std::shared_ptr<State> state_;
};

/// Layer changes grouped together, with one completion when the animations added within have ended.
void performTransaction(bool disableActions, const std::function<void()>& changes,
                        std::function<void()> completion = {});

} // namespace toolkit
