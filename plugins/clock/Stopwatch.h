// A stopwatch with laps. Times are seconds on any clock that does not go back; what is shown counts in
// hundredths, so that the laps add up to the total exactly.
#pragma once

#include "Fields.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace clockplugin {

class Stopwatch {
public:
    using Hundredths = std::int64_t;
    static constexpr std::size_t mostLaps = 99;

    bool isRunning() const { return startedAt_.has_value(); }
    /// Neither running nor stopped on the way.
    bool isReset() const { return !isRunning() && accumulated_ == 0; }

    void start(double now);
    void stop(double now);
    /// Ends the current lap; nothing happens unless it runs, or after the last lap that there is room for.
    void lap(double now);
    /// Nothing happens while it runs.
    void reset();

    Hundredths elapsed(double now) const;
    /// Of the lap that has not ended yet.
    Hundredths currentLap(double now) const;
    /// Those that have ended, the first one first.
    const std::vector<Hundredths>& laps() const { return laps_; }
    bool canLap() const { return isRunning() && laps_.size() < mostLaps; }

    // Indices of laps; nothing until two laps differ.
    std::optional<std::size_t> fastestLap() const;
    std::optional<std::size_t> slowestLap() const;

    /// For a clock that shows `wallTime` (seconds since 1970) at `now`, so that a run outlives restarts.
    Fields kept(double now, double wallTime) const;
    static Stopwatch restored(const Fields& fields, double now, double wallTime);

private:
    double elapsedSeconds(double now) const;
    bool lapsDiffer() const;
    Hundredths lapsTotal() const;

    std::optional<double> startedAt_; // when running: since when
    double accumulated_ = 0;          // seconds run before that
    std::vector<Hundredths> laps_;
};

} // namespace clockplugin
