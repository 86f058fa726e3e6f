#include "platform/plugins/PluginTimer.h"

#include "platform/foundation/RunLoop.h"

namespace plugins {

namespace {

int runningTimers = 0;

} // namespace

TimerState::TimerState(std::shared_ptr<Caller> caller, std::function<void()> handler)
    : caller_(std::move(caller)) {
    handler_.set(std::move(handler));
}

TimerState::~TimerState() {
    stop();
}

int TimerState::running() {
    return runningTimers;
}

void TimerState::start(double interval, bool repeats) {
    handle_ =
        foundation::RunLoop::main().scheduleTimer(interval, repeats, [weak = weak_from_this(), repeats] {
            if (const auto state = weak.lock())
                state->fire(repeats);
        });
    ++runningTimers;
}

void TimerState::stop() {
    if (!handle_)
        return;
    handle_.reset();
    --runningTimers;
}

void TimerState::fire(bool repeats) {
    if (!repeats)
        stop();
    handler_.call(caller_, "a timer's handler");
}

} // namespace plugins
