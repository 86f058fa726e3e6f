#include "platform/toolkit/animation/Animation.h"

#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/layers/LayerAnimations.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>
#include <vector>

namespace toolkit {

using Running = LayerAnimations::Running;

AnimationGroup::AnimationGroup(double duration, double delay, AnimationCurve curve,
                               AnimationCompletion completion)
    : duration_(duration > 0 ? duration : 0),
      delay_(delay > 0 ? delay : 0),
      curve_(curve),
      completion_(std::move(completion)) {}

struct AnimationEngine::State {
    /// The blocks that are running now, the innermost last.
    std::vector<std::shared_ptr<AnimationGroup>> blocks;
    std::vector<std::shared_ptr<AnimationGroup>> transactions;
    int suppressions = 0;
    /// Groups whose completion is still to come at a time of its own.
    std::vector<std::shared_ptr<AnimationGroup>> waiting;
    /// Layers with running animations. A layer leaves before its end.
    std::unordered_set<Layer*> layers;
    std::uint64_t serial = 0;
};

namespace {

/// Keeps a list's or counter's state right when a block throws.
class Leaving {
public:
    explicit Leaving(std::function<void()> leave) : leave_(std::move(leave)) {}
    ~Leaving() { leave_(); }
    Leaving(const Leaving&) = delete;
    Leaving& operator=(const Leaving&) = delete;

private:
    std::function<void()> leave_;
};

} // namespace

AnimationEngine::AnimationEngine() : state_(std::make_shared<State>()) {}

AnimationEngine& AnimationEngine::shared() {
    // Never torn down: layers with static storage end their animations here at exit.
    static auto& engine = *new AnimationEngine;
    return engine;
}

bool AnimationEngine::isAnimating() const {
    return !state_->layers.empty();
}

bool AnimationEngine::isRecording() const {
    return !state_->blocks.empty() && state_->suppressions == 0;
}

bool AnimationEngine::insideBlock() const {
    return isRecording();
}

void AnimationEngine::animate(double duration, double delay, AnimationCurve curve,
                              const std::function<void()>& changes, AnimationCompletion completion) {
    auto group = std::make_shared<AnimationGroup>(duration, delay, curve, std::move(completion));
    if (!state_->transactions.empty()) {
        group->transaction_ = state_->transactions.back();
        ++group->transaction_->running_;
    }
    state_->blocks.push_back(group);
    {
        Leaving leaving([this, &group] {
            state_->blocks.pop_back();
            closeGroup(group);
        });
        if (changes)
            changes();
    }
}

void AnimationEngine::withoutAnimation(const std::function<void()>& changes) {
    ++state_->suppressions;
    Leaving leaving([this] { --state_->suppressions; });
    if (changes)
        changes();
}

// ---- The life of a group

void AnimationEngine::closeGroup(const std::shared_ptr<AnimationGroup>& group) {
    group->open_ = false;
    const double total = group->delay_ + group->duration_;
    if (group->running_ == 0) {
        endSoon(group);
        return;
    }
    state_->waiting.push_back(group);
    group->timer_ = foundation::RunLoop::main().scheduleTimer(total, false, [weak = std::weak_ptr(group)] {
        if (const auto due = weak.lock())
            AnimationEngine::shared().endGroup(due);
    });
}

/// One of the group's changes is no longer shown.
void AnimationEngine::groupLost(const std::shared_ptr<AnimationGroup>& group, Loss loss) {
    --group->running_;
    const bool ends = group->running_ == 0 && !group->open_;
    // What a newer animation brings to the same value comes about all the same, and does not count as long as
    // something of the group is left that says when it ends.
    if (loss == Loss::Taken || (loss == Loss::TakenToSameValue && ends))
        group->interrupted_ = true;
    if (ends)
        endSoon(group);
}

/// The group's time has come: the screen shows model values again, then the completion runs.
void AnimationEngine::endGroup(const std::shared_ptr<AnimationGroup>& group) {
    if (std::exchange(group->ended_, true))
        return;
    std::erase(state_->waiting, group);
    const std::vector<Layer*> layers(state_->layers.begin(), state_->layers.end());
    for (Layer* layer : layers) {
        std::erase_if(layer->ensureAnimations().running(),
                      [&](const Running& running) { return running.group == group; });
        forgetIfIdle(*layer);
    }
    group->running_ = 0;
    Layer::noteChange();
    if (const auto completion = std::exchange(group->completion_, nullptr))
        completion(!group->interrupted_);
    if (group->transaction_)
        transactionLost(group->transaction_);
}

/// Nothing of the group is shown any more, or ever was: its completion runs in the next turn, so that it
/// never runs inside a setter.
void AnimationEngine::endSoon(const std::shared_ptr<AnimationGroup>& group) {
    if (group->ended_)
        return;
    std::erase(state_->waiting, group);
    group->timer_.reset();
    if (!foundation::RunLoop::hasMain())
        return;
    foundation::RunLoop::main().performOnMain([group] { AnimationEngine::shared().endGroup(group); });
}

// ---- The changes in a block

void AnimationEngine::layerWillSet(Layer& layer, LayerProperty property, const AnimatableValue& newValue) {
    if (!isRecording()) {
        if (layer.hasAnimations())
            interrupt(layer, property, nullptr);
        return;
    }
    const AnimatableValue from = layer.presented(property);
    const auto& group = *state_->blocks.back();
    const bool takesTime = group.delay_ + group.duration_ > 0;
    interrupt(layer, property, takesTime ? &newValue : nullptr);
    if (from != newValue && takesTime)
        record(layer, property, from, newValue);
}

void AnimationEngine::record(Layer& layer, LayerProperty property, const AnimatableValue& from,
                             const AnimatableValue& to) {
    const auto& group = state_->blocks.back();
    Running running;
    running.property = property;
    running.from = from;
    running.to = to;
    running.begin = foundation::RunLoop::main().now() + group->delay_;
    running.duration = group->duration_;
    running.curve = group->curve_;
    running.group = group;
    running.serial = ++state_->serial;
    ++group->running_;
    layer.ensureAnimations().running().push_back(std::move(running));
    state_->layers.insert(&layer);
    Layer::noteChange();
}

/// Ends the view animations of one property; keyed ones lie over the model value and stay. `newTarget` is
/// where a newer animation brings it, null when there is none.
void AnimationEngine::interrupt(Layer& layer, LayerProperty property, const AnimatableValue* newTarget) {
    if (!layer.hasAnimations())
        return;
    std::vector<std::pair<std::shared_ptr<AnimationGroup>, Loss>> lost;
    std::erase_if(layer.ensureAnimations().running(), [&](const Running& running) {
        if (running.property != property || !running.group)
            return false;
        const bool same = newTarget && *newTarget == running.to;
        lost.emplace_back(running.group, same ? Loss::TakenToSameValue : Loss::Taken);
        return true;
    });
    if (lost.empty())
        return;
    forgetIfIdle(layer);
    Layer::noteChange();
    for (const auto& [group, loss] : lost) {
        // A block that sets a property twice takes nothing over from anyone.
        const bool ownBlock = !state_->blocks.empty() && state_->blocks.back() == group;
        groupLost(group, ownBlock ? Loss::Harmless : loss);
    }
}

void AnimationEngine::layerWillDisappear(Layer& layer) {
    state_->layers.erase(&layer);
    const std::vector<Running> running = std::exchange(layer.ensureAnimations().running(), {});
    for (const Running& one : running) {
        if (one.group)
            groupLost(one.group, Loss::Taken);
        if (one.transaction)
            transactionLost(one.transaction);
    }
}

void AnimationEngine::forgetIfIdle(Layer& layer) {
    if (!layer.ensureAnimations().isMoving())
        state_->layers.erase(&layer);
}

// ---- Animations by key

void AnimationEngine::addKeyed(Layer& layer, const std::string& key, const BasicAnimation& animation) {
    removeKeyed(layer, key);
    if (!(animation.duration > 0 && animation.repeatCount > 0))
        return;
    Running running;
    running.property = animation.property;
    running.from = animation.from;
    running.to = animation.to;
    running.begin = foundation::RunLoop::main().now();
    running.duration = animation.duration;
    running.curve = animation.curve;
    running.repeatCount = animation.repeatCount;
    running.removedOnCompletion = animation.removedOnCompletion;
    running.key = key;
    running.serial = ++state_->serial;
    if (!state_->transactions.empty()) {
        running.transaction = state_->transactions.back();
        ++running.transaction->running_;
    }
    const double total = animation.duration * animation.repeatCount;
    if (std::isfinite(total))
        running.expiry = std::make_shared<foundation::Handle>(foundation::RunLoop::main().scheduleTimer(
            total, false, [layer = &layer, serial = running.serial] {
                AnimationEngine::shared().keyedEnded(*layer, serial);
            }));
    layer.ensureAnimations().running().push_back(std::move(running));
    state_->layers.insert(&layer);
    Layer::noteChange();
}

void AnimationEngine::removeKeyed(Layer& layer, const std::string& key) {
    if (!layer.hasAnimations())
        return;
    auto& running = layer.ensureAnimations().running();
    const auto found = std::find_if(running.begin(), running.end(),
                                    [&](const Running& one) { return !one.group && one.key == key; });
    if (found != running.end())
        dropKeyed(layer, found->serial);
}

namespace {

auto withSerial(std::vector<Running>& running, std::uint64_t serial) {
    return std::find_if(running.begin(), running.end(),
                        [serial](const Running& one) { return one.serial == serial; });
}

} // namespace

/// The time of a keyed animation is over: it goes, or stays as the value that it ended with.
void AnimationEngine::keyedEnded(Layer& layer, std::uint64_t serial) {
    auto& running = layer.ensureAnimations().running();
    const auto found = withSerial(running, serial);
    if (found == running.end() || found->removedOnCompletion)
        return dropKeyed(layer, serial);
    found->ended = true;
    forgetIfIdle(layer);
    Layer::noteChange();
    if (const auto transaction = std::exchange(found->transaction, nullptr))
        transactionLost(transaction);
}

void AnimationEngine::dropKeyed(Layer& layer, std::uint64_t serial) {
    auto& running = layer.ensureAnimations().running();
    const auto found = withSerial(running, serial);
    if (found == running.end())
        return;
    const Running ended = std::move(*found);
    running.erase(found);
    forgetIfIdle(layer);
    Layer::noteChange();
    if (ended.transaction)
        transactionLost(ended.transaction);
}

// ---- Transactions

void AnimationEngine::transact(bool disableActions, const std::function<void()>& changes,
                               std::function<void()> completion) {
    auto transaction = std::make_shared<AnimationGroup>(0, 0, AnimationCurve::Linear,
                                                        completion ? [completion](bool) { completion(); }
                                                                   : AnimationCompletion());
    state_->transactions.push_back(transaction);
    {
        Leaving leaving([this, &transaction] {
            state_->transactions.pop_back();
            transaction->open_ = false;
            if (transaction->running_ == 0)
                endSoon(transaction);
        });
        if (disableActions)
            withoutAnimation(changes);
        else if (changes)
            changes();
    }
}

void AnimationEngine::transactionLost(const std::shared_ptr<AnimationGroup>& transaction) {
    groupLost(transaction, Loss::Harmless);
}

void performTransaction(bool disableActions, const std::function<void()>& changes,
                        std::function<void()> completion) {
    AnimationEngine::shared().transact(disableActions, changes, std::move(completion));
}

} // namespace toolkit
