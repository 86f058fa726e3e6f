// The main loop in real time, on GLib's default main context.
#pragma once

#include "platform/foundation/RunLoop.h"

#include <memory>

namespace foundation {

class GlibRunLoop final : public RunLoop {
public:
    GlibRunLoop();
    ~GlibRunLoop() override;

    double now() const override;
    Handle scheduleTimer(double interval, bool repeats, std::function<void()> fire) override;
    void performOnMain(std::function<void()> block) override;
    void performInBackground(std::function<void()> work) override;
    Handle addDisplayLink(std::function<void(double)> tick) override;

    /// Has frames come `count` at a time, at the time of the last of them: for a host of which nothing is
    /// seen, and which needs no frame sooner. Each keeps its own time. With 1 those that are outstanding come
    /// with the next one.
    void gatherFrames(int count);

    /// Runs until stop() is called.
    void run();
    void stop();
    /// Ends the turn that an outside source of events (a window's input, say) has just filled.
    void endTurn() { runTurnHooks(); }

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace foundation
