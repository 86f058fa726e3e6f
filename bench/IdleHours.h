// What a phone costs that nobody touches.
#pragma once

#include "bench/RunningPhone.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>

namespace bench {

/// Lets an hour pass in each iteration: frames an hour beyond the clock's own (one a minute), and how much of
/// one core the hour's work would take.
inline void measureIdleHours(benchmark::State& state, RunningPhone& running) {
    constexpr int seconds = 3600;
    auto& server = toolkit::WindowServer::shared();
    int frames = 0;
    double busy = 0;
    for (auto _ : state) {
        const std::clock_t begin = std::clock();
        for (int second = 0; second < seconds; ++second) {
            running.loop.advance(1);
            if (server.needsFrame() && !server.composeFrame().damage.empty())
                ++frames;
        }
        busy += static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    }
    const auto hours = static_cast<double>(state.iterations());
    state.counters["frames"] = std::max(0.0, frames / hours - seconds / 60.0);
    state.counters["core_percent"] = 100 * busy / (hours * seconds);
}

} // namespace bench
