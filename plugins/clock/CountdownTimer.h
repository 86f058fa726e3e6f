// A timer that counts down. While it runs it is nothing but the time of day at which it ends, so that it goes
// on whether or not anybody looks, also over a restart. Times of day are seconds since 1970.
#pragma once

#include "Fields.h"

namespace clockplugin {

class CountdownTimer {
public:
    enum class State {
        Idle,
        Running, // also after its end, until that has been acknowledged by cancel() or restart()
        Paused,
    };
    static constexpr int shortest = 1; // seconds
    static constexpr int longest = 23 * 3600 + 59 * 60 + 59;

    State state() const { return state_; }
    /// What the next start() counts down from, in seconds.
    int duration() const { return duration_; }
    /// Brought within the limits; nothing happens unless idle.
    void setDuration(int seconds);

    /// Nothing happens unless idle.
    void start(double wallTime);
    void pause(double wallTime);
    void resume(double wallTime);
    /// Back to idle, from any state.
    void cancel();
    /// Once more the whole duration, from any state.
    void restart(double wallTime);

    /// From the duration down to 0.
    double remaining(double wallTime) const;
    bool hasEnded(double wallTime) const;
    /// The time of day at which it ends; only while it runs.
    double end() const { return end_; }

    Fields kept() const;
    static CountdownTimer restored(const Fields& fields);

private:
    State state_ = State::Idle;
    int duration_ = 5 * 60;
    double end_ = 0;       // while running
    double remaining_ = 0; // while paused
};

} // namespace clockplugin
