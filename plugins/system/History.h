// The values of the last minute, each with its time, for a graph.
//
// Times are kept because there may be gaps: while the panel is closed nothing is measured, and a graph shows
// that instead of drawing a line across.
#pragma once

#include <deque>

namespace systemplugin {

class History {
public:
    static constexpr double duration = 60;     // seconds that are kept
    static constexpr double largestStep = 2.5; // seconds; values further apart have a gap between them

    struct Sample {
        double time = 0;
        double value = 0;
        friend bool operator==(const Sample&, const Sample&) = default;
    };

    /// Forgets what is older than the duration. A time before the latest begins anew; the same
    /// time again replaces the value.
    void add(double time, double value);

    const std::deque<Sample>& samples() const { return samples_; }
    /// 0 without any.
    double largest() const;

private:
    std::deque<Sample> samples_;
};

} // namespace systemplugin
