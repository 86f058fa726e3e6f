// Waiting for another process, for a while.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace tests {

inline constexpr std::chrono::seconds patience(20);

/// Runs until `holds`, for `limit` at most; answers whether it does. `meanwhile` is called again and again.
inline bool eventually(const std::function<bool()>& holds, const std::function<void()>& meanwhile = {},
                       std::chrono::seconds limit = patience) {
    using Clock = std::chrono::steady_clock;
    for (const auto end = Clock::now() + limit; Clock::now() < end;) {
        if (holds())
            return true;
        if (meanwhile)
            meanwhile();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return holds();
}

} // namespace tests
