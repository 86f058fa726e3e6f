// A plug-in's timer.
//
// The plug-in keeps the timer, the phone its state, so that all timers of a plug-in that has ended can be
// stopped.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/plugins/Handler.h"
#include "sdk/VelaPlugin.h"

#include <string>

namespace plugins {

class TimerState : public std::enable_shared_from_this<TimerState> {
public:
    TimerState(std::shared_ptr<Caller> caller, std::function<void()> handler);
    ~TimerState();
    void start(double interval, bool repeats);
    void stop();

    /// How many timers of all plug-ins run now.
    static int running();

private:
    void fire(bool repeats);
    std::shared_ptr<Caller> caller_;
    Handler<> handler_;
    foundation::Handle handle_;
};

class PluginTimer final : public vela::plugin::Timer {
public:
    explicit PluginTimer(std::shared_ptr<TimerState> state) : state_(std::move(state)) {}
    ~PluginTimer() override { state_->stop(); }

private:
    std::shared_ptr<TimerState> state_;
};

} // namespace plugins
