// Waiting for another process, for a while.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace tests {

/// Runs until `holds`, for twenty seconds at most; answers whether it does. `meanwhile` is called again and
/// again.
inline bool eventually(const std::function<bool()>& holds, const std::function<void()>& meanwhile = {}) {
    using Clock = std::chrono::steady_clock;
    for (const auto end = Clock::now() + std::chrono::seconds(20); Clock::now() < end;) {
        if (holds())
            return true;
        if (meanwhile)
            meanwhile();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return holds();
}

} // namespace tests
