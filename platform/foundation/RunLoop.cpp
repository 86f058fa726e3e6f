#include "platform/foundation/RunLoop.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace foundation {

namespace {

RunLoop* mainLoop = nullptr;

} // namespace

RunLoop& RunLoop::main() {
    if (!mainLoop) {
        // A programming mistake that nothing could be answered to: say it instead of crashing without a word.
        std::fputs("RunLoop::main() was asked for before any loop became the main one\n", stderr);
        std::abort();
    }
    return *mainLoop;
}

bool RunLoop::hasMain() {
    return mainLoop != nullptr;
}

void RunLoop::setMain(RunLoop* loop) {
    mainLoop = loop;
}

RunLoop::~RunLoop() {
    if (mainLoop == this)
        mainLoop = nullptr;
}

Handle RunLoop::addTurnHook(TurnPhase phase, std::function<void()> run) {
    auto hook = std::make_shared<Hook>(Hook{phase, std::move(run)});
    auto next = hooks_->begin();
    while (next != hooks_->end() && (*next)->phase <= phase)
        ++next;
    hooks_->insert(next, hook);
    return Handle([hooks = std::weak_ptr(hooks_), weak = std::weak_ptr(hook)] {
        auto registered = weak.lock();
        if (!registered)
            return;
        registered->removed = true;
        if (auto list = hooks.lock())
            list->remove(registered);
    });
}

void RunLoop::runTurnHooks() {
    // Hooks may add and remove hooks: this turn has those that stood when it ended.
    const std::vector<std::shared_ptr<Hook>> hooks(hooks_->begin(), hooks_->end());
    for (const auto& hook : hooks)
        if (!hook->removed)
            hook->run();
}

} // namespace foundation
