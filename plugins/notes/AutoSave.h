// Saves every change at once, so that a kill costs nothing, unless there is so much to be written that it
// would hold up the typing: that is saved soon after.
//
// The first such change starts the delay and later ones do not put it off; who types without a pause is saved
// all the while. What could not be saved stays unsaved and is tried again. At rest there is no timer.
#pragma once

#include "VelaPlugin.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace notesplugin {

class AutoSave {
public:
    static constexpr std::size_t atOnce = 64 * 1024; // bytes, up to which a change is saved at once
    static constexpr double delay = 0.4;             // seconds from a change to more than that to its saving
    static constexpr double retryDelay = 3.0;        // seconds from a failure to the next attempt

    using StartTimer =
        std::function<std::unique_ptr<vela::plugin::Timer>(double seconds, std::function<void()> handler)>;

    /// `save` answers whether it succeeded.
    AutoSave(StartTimer startTimer, std::function<bool()> save);

    /// `size` in bytes is what there is to be written.
    void changed(std::size_t size);
    /// Saves at once what is unsaved, and leaves no timer behind. True when nothing is unsaved afterwards.
    bool flush();
    /// Tries again what could not be saved before the timers were stopped.
    void resume();
    /// There is nothing to be saved any more.
    void discard();

    bool isUnsaved() const { return unsaved_; }
    /// The latest attempt failed, and what it was to save is still unsaved.
    bool hasFailed() const { return failed_; }

private:
    void start(double seconds);
    void fire();
    bool attempt();

    StartTimer startTimer_;
    std::function<bool()> save_;
    std::unique_ptr<vela::plugin::Timer> timer_;
    bool unsaved_ = false;
    bool failed_ = false;
};

} // namespace notesplugin
