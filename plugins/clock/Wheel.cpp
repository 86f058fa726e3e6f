#include "Wheel.h"

#include <algorithm>
#include <cmath>

namespace clockplugin {

namespace {

constexpr double rollSeconds = 0.35;
constexpr double sampleSeconds = 0.1; // the speed is that of so long before the finger was lifted
constexpr double throwSeconds = 0.22; // a thrown wheel goes as far as it went in this time
constexpr double longestThrow = 12;   // rows

double around(double position, int count) {
    const double wrapped = std::fmod(position, count);
    return wrapped < 0 ? wrapped + count : wrapped;
}

} // namespace

int Wheel::value() const {
    return static_cast<int>(around(std::round(grabbedAt_ ? samples_.back().position : to_), count_));
}

void Wheel::setValue(int value) {
    grabbedAt_.reset();
    from_ = to_ = std::clamp(value, 0, count_ - 1);
}

void Wheel::grab(double time) {
    grabbedAt_ = freePosition(time);
    samples_.assign(1, {time, *grabbedAt_});
}

void Wheel::drag(double rows, double time) {
    if (!grabbedAt_)
        return;
    forgetSamplesBefore(time - sampleSeconds);
    samples_.push_back({time, *grabbedAt_ + rows});
}

void Wheel::release(double time) {
    if (!grabbedAt_)
        return;
    const double position = samples_.back().position;
    const double thrown = std::clamp(speed(time) * throwSeconds, -longestThrow, longestThrow);
    rollFrom(position, std::round(position + thrown), time);
}

void Wheel::step(int rows, double time) {
    rollFrom(freePosition(time), std::round(to_) + rows, time);
}

void Wheel::forgetSamplesBefore(double time) {
    while (samples_.size() > 1 && samples_.front().time < time)
        samples_.pop_front();
}

double Wheel::speed(double time) const {
    const auto first = std::find_if(samples_.begin(), samples_.end(), [&](const Sample& sample) {
        return sample.time >= time - sampleSeconds;
    });
    if (first == samples_.end() || samples_.back().time <= first->time)
        return 0;
    return (samples_.back().position - first->position) / (samples_.back().time - first->time);
}

void Wheel::rollFrom(double position, double target, double time) {
    grabbedAt_.reset();
    from_ = position;
    to_ = target;
    startedAt_ = time;
}

double Wheel::freePosition(double time) const {
    if (grabbedAt_)
        return samples_.back().position;
    const double rest = 1 - std::clamp((time - startedAt_) / rollSeconds, 0.0, 1.0);
    return to_ + (from_ - to_) * rest * rest * rest;
}

double Wheel::position(double time) const {
    return around(freePosition(time), count_);
}

bool Wheel::isRolling(double time) const {
    return !grabbedAt_ && from_ != to_ && time < startedAt_ + rollSeconds;
}

} // namespace clockplugin
