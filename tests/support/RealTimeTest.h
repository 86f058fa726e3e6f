// A test in real time, of what threads, other processes or devices do: it waits until something holds, with a
// limit.
#pragma once

#include "platform/foundation/GlibRunLoop.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>

namespace support {

class RealTimeTest : public testing::Test {
protected:
    RealTimeTest() { foundation::RunLoop::setMain(&loop); }
    ~RealTimeTest() override { foundation::RunLoop::setMain(nullptr); }

    /// Runs the main loop until `done` holds; false when that takes more than `limit` seconds.
    bool runUntil(const std::function<bool()>& done, double limit = 20) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(limit);
        const foundation::Handle beat = loop.scheduleTimer(0.005, true, [] {});
        while (!done()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            const auto begin = std::chrono::steady_clock::now();
            g_main_context_iteration(nullptr, TRUE);
            const std::chrono::duration<double> turn = std::chrono::steady_clock::now() - begin;
            longestTurn = std::max(longestTurn, turn.count());
        }
        return true;
    }
    /// Runs the main loop for a time in which something is not to happen.
    void runFor(double seconds) {
        runUntil([] { return false; }, seconds);
    }

    foundation::GlibRunLoop loop;
    /// Seconds, waiting included, that an iteration of the loop took.
    double longestTurn = 0;
};

} // namespace support
