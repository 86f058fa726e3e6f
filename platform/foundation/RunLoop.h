// The main loop, and the only reader of a clock: timers, blocks for the main queue, work for a background
// queue, display links and the hooks at the end of each turn.
//
// There are two kinds, GlibRunLoop for real time and VirtualRunLoop, which steps time for tests and headless
// runs. Everything runs on the main thread but the blocks given to performInBackground. A turn is one round
// of whatever was due, followed by the turn hooks in the order of their phases.
#pragma once

#include "platform/foundation/Handle.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>

namespace foundation {

/// What happens at the end of a turn, in this order.
enum class TurnPhase { Layout, Commit };

class RunLoop {
public:
    /// The process's main loop. There must be one before anything of the platform is used.
    static RunLoop& main();
    /// False before any loop became the main one and after that one's end, as when static objects go at exit.
    static bool hasMain();
    /// Makes `loop` the main one; null takes it away. The caller keeps owning it.
    static void setMain(RunLoop* loop);

    virtual ~RunLoop();

    /// Seconds on a clock that never goes back; its zero means nothing.
    virtual double now() const = 0;

    /// Calls `fire` once `interval` seconds from now, or, repeating, at every multiple of it from now (missed
    /// beats are skipped, the phase is kept).
    virtual Handle scheduleTimer(double interval, bool repeats, std::function<void()> fire) = 0;
    /// Calls `block` in a later turn of the main loop. Any thread may ask.
    virtual void performOnMain(std::function<void()> block) = 0;
    /// Calls `work` away from the main thread; the virtual loop calls it in the next turn instead.
    virtual void performInBackground(std::function<void()> work) = 0;
    /// Calls `tick` with the loop's time once a frame, 60 times a second, as long as the handle lives. A loop
    /// without links has no frames.
    virtual Handle addDisplayLink(std::function<void(double now)> tick) = 0;

    Handle addTurnHook(TurnPhase phase, std::function<void()> hook);

    static constexpr double frameInterval = 1.0 / 60.0;

protected:
    void runTurnHooks();

private:
    struct Hook {
        TurnPhase phase;
        std::function<void()> run;
        bool removed = false;
    };
    std::shared_ptr<std::list<std::shared_ptr<Hook>>> hooks_ =
        std::make_shared<std::list<std::shared_ptr<Hook>>>();
};

} // namespace foundation
