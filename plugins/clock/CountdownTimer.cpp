#include "CountdownTimer.h"

#include <algorithm>
#include <cmath>

namespace clockplugin {

namespace {

constexpr std::int64_t latestMilliseconds = 100'000'000'000'000;

std::int64_t milliseconds(double seconds) {
    return std::llround(seconds * 1000);
}
double seconds(std::int64_t milliseconds) {
    return static_cast<double>(milliseconds) / 1000;
}

} // namespace

void CountdownTimer::setDuration(int seconds) {
    if (state_ == State::Idle)
        duration_ = std::clamp(seconds, shortest, longest);
}

void CountdownTimer::start(double wallTime) {
    if (state_ == State::Idle)
        restart(wallTime);
}

void CountdownTimer::restart(double wallTime) {
    state_ = State::Running;
    end_ = wallTime + duration_;
}

void CountdownTimer::pause(double wallTime) {
    if (state_ != State::Running || hasEnded(wallTime))
        return;
    remaining_ = remaining(wallTime);
    state_ = State::Paused;
}

void CountdownTimer::resume(double wallTime) {
    if (state_ != State::Paused)
        return;
    end_ = wallTime + remaining_;
    state_ = State::Running;
}

void CountdownTimer::cancel() {
    state_ = State::Idle;
}

double CountdownTimer::remaining(double wallTime) const {
    switch (state_) {
    case State::Running:
        // A clock that has been put back does not make it longer than it was.
        return std::clamp(end_ - wallTime, 0.0, static_cast<double>(duration_));
    case State::Paused:
        return remaining_;
    case State::Idle:
        break;
    }
    return duration_;
}

bool CountdownTimer::hasEnded(double wallTime) const {
    return state_ == State::Running && wallTime >= end_;
}

Fields CountdownTimer::kept() const {
    Fields fields;
    fields.add("duration", duration_);
    if (state_ == State::Running)
        fields.add("end", milliseconds(end_));
    if (state_ == State::Paused)
        fields.add("remaining", milliseconds(remaining_));
    return fields;
}

CountdownTimer CountdownTimer::restored(const Fields& fields) {
    CountdownTimer timer;
    timer.duration_ =
        static_cast<int>(fields.integer("duration", shortest, longest).value_or(timer.duration_));
    if (const auto end = fields.integer("end", 0, latestMilliseconds)) {
        timer.state_ = State::Running;
        timer.end_ = seconds(*end);
    } else if (const auto remaining = fields.integer("remaining", 1, std::int64_t{timer.duration_} * 1000)) {
        timer.state_ = State::Paused;
        timer.remaining_ = seconds(*remaining);
    }
    return timer;
}

} // namespace clockplugin
