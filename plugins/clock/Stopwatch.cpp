#include "Stopwatch.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>

namespace clockplugin {

namespace {

constexpr std::int64_t longestMilliseconds = 1'000'000'000'000; // some thirty years
constexpr std::int64_t latestMilliseconds = 100'000'000'000'000;

std::int64_t milliseconds(double seconds) {
    return std::llround(seconds * 1000);
}
double seconds(std::int64_t milliseconds) {
    return static_cast<double>(milliseconds) / 1000;
}
std::string lapKey(std::size_t index) {
    return "lap-" + std::to_string(index);
}

} // namespace

void Stopwatch::start(double now) {
    if (!startedAt_)
        startedAt_ = now;
}

void Stopwatch::stop(double now) {
    accumulated_ = elapsedSeconds(now);
    startedAt_.reset();
}

void Stopwatch::lap(double now) {
    if (canLap())
        laps_.push_back(currentLap(now));
}

void Stopwatch::reset() {
    if (!isRunning())
        *this = Stopwatch();
}

double Stopwatch::elapsedSeconds(double now) const {
    return accumulated_ + (startedAt_ ? std::max(0.0, now - *startedAt_) : 0);
}

Stopwatch::Hundredths Stopwatch::elapsed(double now) const {
    // A whole hundredth must not be lost to the last bit of a sum of seconds.
    return static_cast<Hundredths>(std::floor(elapsedSeconds(now) * 100 + 1e-4));
}

Stopwatch::Hundredths Stopwatch::lapsTotal() const {
    return std::accumulate(laps_.begin(), laps_.end(), Hundredths{0});
}

Stopwatch::Hundredths Stopwatch::currentLap(double now) const {
    return std::max<Hundredths>(0, elapsed(now) - lapsTotal());
}

bool Stopwatch::lapsDiffer() const {
    return std::adjacent_find(laps_.begin(), laps_.end(), std::not_equal_to<>()) != laps_.end();
}

std::optional<std::size_t> Stopwatch::fastestLap() const {
    if (!lapsDiffer())
        return std::nullopt;
    return static_cast<std::size_t>(std::min_element(laps_.begin(), laps_.end()) - laps_.begin());
}

std::optional<std::size_t> Stopwatch::slowestLap() const {
    if (!lapsDiffer())
        return std::nullopt;
    return static_cast<std::size_t>(std::max_element(laps_.begin(), laps_.end()) - laps_.begin());
}

Fields Stopwatch::kept(double now, double wallTime) const {
    Fields fields;
    fields.add("accumulated", milliseconds(accumulated_));
    if (startedAt_)
        fields.add("started", milliseconds(*startedAt_ - now + wallTime));
    for (std::size_t i = 0; i < laps_.size(); ++i)
        fields.add(lapKey(i), laps_[i]);
    return fields;
}

Stopwatch Stopwatch::restored(const Fields& fields, double now, double wallTime) {
    Stopwatch stopwatch;
    stopwatch.accumulated_ = seconds(fields.integer("accumulated", 0, longestMilliseconds).value_or(0));
    if (const auto started = fields.integer("started", 0, latestMilliseconds))
        stopwatch.startedAt_ = std::min(now, seconds(*started) - wallTime + now);
    if (stopwatch.isReset())
        return stopwatch;
    for (std::size_t i = 0; i < mostLaps; ++i) {
        const auto lap = fields.integer(lapKey(i), 0, longestMilliseconds / 10);
        if (!lap)
            break;
        stopwatch.laps_.push_back(*lap);
    }
    return stopwatch;
}

} // namespace clockplugin
