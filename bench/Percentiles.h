// The median and the 99th percentile of single measurements, as counters of a benchmark.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace bench {

class Percentiles {
public:
    /// Runs `work` and takes its time in.
    template <class Work>
    void measure(benchmark::State& state, Work work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        add(state, taken.count());
    }
    void add(benchmark::State& state, double seconds) {
        state.SetIterationTime(seconds);
        milliseconds_.push_back(seconds * 1000);
    }
    void report(benchmark::State& state) {
        if (milliseconds_.empty())
            return;
        std::sort(milliseconds_.begin(), milliseconds_.end());
        state.counters["median_ms"] = at(0.5);
        state.counters["p99_ms"] = at(0.99);
    }

private:
    double at(double part) const {
        const auto last = static_cast<double>(milliseconds_.size() - 1);
        return milliseconds_[static_cast<std::size_t>(std::lround(part * last))];
    }
    std::vector<double> milliseconds_;
};

} // namespace bench
