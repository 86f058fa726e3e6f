#include "platform/foundation/GlibRunLoop.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

#include <glib.h>
#include <gtest/gtest.h>

namespace foundation {
namespace {

class GlibRunLoopTest : public testing::Test {
protected:
    GlibRunLoopTest() { RunLoop::setMain(&loop); }

    /// Runs the loop until `done` holds after a turn; false when that takes more than ten seconds.
    bool runUntil(const std::function<bool()>& done) {
        bool held = false;
        const Handle hook = loop.addTurnHook(TurnPhase::Commit, [&] {
            held = held || done();
            if (held)
                loop.stop();
        });
        const Handle limit = loop.scheduleTimer(10, false, [&] { loop.stop(); });
        loop.run();
        return held;
    }

    /// In how many milliseconds the context would wake by itself; -1 for never.
    static int millisecondsToWake() {
        GMainContext* context = g_main_context_default();
        if (!g_main_context_acquire(context))
            return 0;
        int priority = 0;
        int timeout = 0;
        GPollFD descriptors[16];
        const bool ready = g_main_context_prepare(context, &priority);
        const int count = g_main_context_query(context, priority, &timeout, descriptors, 16);
        g_main_context_check(context, priority, descriptors, std::min(count, 16));
        g_main_context_release(context);
        return ready ? 0 : timeout;
    }

    GlibRunLoop loop;
};

TEST_F(GlibRunLoopTest, FiresATimerOnceAndNotBeforeItsTime) {
    const double begin = loop.now();
    std::vector<double> fired;
    const Handle timer = loop.scheduleTimer(0.02, false, [&] { fired.push_back(loop.now()); });
    const Handle later = loop.scheduleTimer(0.06, false, [&] { fired.push_back(loop.now()); });
    ASSERT_TRUE(runUntil([&] { return fired.size() == 2; }));
    EXPECT_GE(fired[0], begin + 0.02);
    EXPECT_GE(fired[1], begin + 0.06);
}

TEST_F(GlibRunLoopTest, SkipsMissedBeatsAndKeepsThePhase) {
    constexpr double interval = 0.02;
    std::vector<double> fired;
    const double begin = loop.now();
    const Handle timer = loop.scheduleTimer(interval, true, [&] {
        fired.push_back(loop.now());
        if (fired.size() == 1)
            while (loop.now() < begin + 3.5 * interval) {
            }
    });
    ASSERT_TRUE(runUntil([&] { return fired.size() == 4; }));
    // Beat 1, then the work that covers beats 2 and 3, then from beat 4 on, each within its own interval.
    EXPECT_GE(fired[1], begin + 4 * interval);
    const auto beat = [&](std::size_t index) { return std::floor((fired[index] - begin) / interval + 1e-4); };
    for (std::size_t index = 2; index < fired.size(); ++index)
        EXPECT_GT(beat(index), beat(index - 1));
}

TEST_F(GlibRunLoopTest, LetsTimersGoWhileTheyFire) {
    int fired = 0;
    int others = 0;
    Handle itself;
    Handle other;
    itself = loop.scheduleTimer(0.01, true, [&] {
        itself.reset();
        other.reset();
        ++fired;
    });
    other = loop.scheduleTimer(0.0101, true, [&] { ++others; });
    const Handle end = loop.scheduleTimer(0.08, false, [] {});
    const double begin = loop.now();
    ASSERT_TRUE(runUntil([&] { return loop.now() > begin + 0.08; }));
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(others, 0);
}

TEST_F(GlibRunLoopTest, EndsEachTurnWithItsHooks) {
    std::string order;
    const Handle commit = loop.addTurnHook(TurnPhase::Commit, [&] { order += "C"; });
    const Handle layout = loop.addTurnHook(TurnPhase::Layout, [&] { order += "L"; });
    loop.performOnMain([&] {
        order += "1";
        loop.performOnMain([&] { order += "3"; });
    });
    loop.performOnMain([&] { order += "2"; });
    ASSERT_TRUE(runUntil([&] { return order.find('3') != std::string::npos; }));
    EXPECT_EQ(order, "12LC3LC");
    loop.endTurn();
    EXPECT_EQ(order, "12LC3LCLC");
}

TEST_F(GlibRunLoopTest, TakesBlocksFromAnyThreadAndRunsThemOnTheMainOne) {
    constexpr int blocksOfEach = 500;
    const auto mainThread = std::this_thread::get_id();
    int ran = 0;
    bool elsewhere = false;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int block = 0; block < blocksOfEach; ++block)
                loop.performOnMain([&] {
                    ++ran;
                    elsewhere = elsewhere || std::this_thread::get_id() != mainThread;
                });
        });
    EXPECT_TRUE(runUntil([&] { return ran == 4 * blocksOfEach; }));
    for (auto& thread : threads)
        thread.join();
    EXPECT_FALSE(elsewhere);
}

TEST_F(GlibRunLoopTest, WorksInTheBackgroundAndAnswersOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    std::thread::id workThread;
    std::thread::id answerThread;
    loop.performInBackground([&] {
        workThread = std::this_thread::get_id();
        RunLoop::main().performOnMain([&] { answerThread = std::this_thread::get_id(); });
    });
    ASSERT_TRUE(runUntil([&] { return answerThread != std::thread::id(); }));
    EXPECT_NE(workThread, mainThread);
    EXPECT_EQ(answerThread, mainThread);
}

TEST_F(GlibRunLoopTest, TicksSixtyTimesASecondAtMost) {
    std::vector<double> ticks;
    Handle link = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
    ASSERT_TRUE(runUntil([&] { return ticks.size() == 20; }));
    link.reset();
    for (std::size_t tick = 1; tick < ticks.size(); ++tick)
        EXPECT_GT(std::floor(ticks[tick] * 60 + 1e-4), std::floor(ticks[tick - 1] * 60 + 1e-4));
    EXPECT_GE(ticks.back() - ticks.front(), 18.0 / 60);
}

/// The numbers of frames at these times, each of which lies at its frame's beginning or after it.
std::vector<double> framesAt(const std::vector<double>& times) {
    std::vector<double> frames;
    for (const double time : times)
        frames.push_back(std::floor(time * 60 + 1e-4));
    return frames;
}

TEST_F(GlibRunLoopTest, GathersFramesAndLosesNone) {
    std::vector<double> ticks;
    std::vector<std::size_t> turns;
    const Handle hook = loop.addTurnHook(TurnPhase::Commit, [&] { turns.push_back(ticks.size()); });
    loop.gatherFrames(10);
    const double begin = loop.now();
    Handle link = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
    ASSERT_TRUE(runUntil([&] { return ticks.size() >= 10; }));
    EXPECT_EQ(turns.front(), 10u) << "all in one turn";
    EXPECT_GE(ticks.front(), begin);
    const auto frames = framesAt(ticks);
    for (std::size_t tick = 1; tick + 1 < frames.size(); ++tick)
        EXPECT_EQ(frames[tick], frames[tick - 1] + 1);
    EXPECT_GT(frames.back(), frames[frames.size() - 2]);
}

TEST_F(GlibRunLoopTest, BringsGatheredFramesWithTheNextOneWhenTheyAreWantedSingly) {
    std::vector<double> ticks;
    loop.gatherFrames(100'000);
    const Handle link = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
    const double begin = loop.now();
    const Handle timer = loop.scheduleTimer(0.1, false, [&] { loop.gatherFrames(1); });
    ASSERT_TRUE(runUntil([&] { return !ticks.empty(); }));
    EXPECT_GE(ticks.size(), 5u) << "those of a tenth of a second";
    EXPECT_LT(ticks.front(), begin + 2.0 / 60);
    const std::size_t gathered = ticks.size();
    ASSERT_TRUE(runUntil([&] { return ticks.size() > gathered; }));
    EXPECT_EQ(ticks.size(), gathered + 1);
    const auto frames = framesAt(ticks);
    for (std::size_t tick = 1; tick < frames.size(); ++tick)
        EXPECT_GT(frames[tick], frames[tick - 1]);
}

TEST_F(GlibRunLoopTest, GivesALinkNoFrameFromBeforeIt) {
    loop.gatherFrames(100'000);
    const Handle early = loop.addDisplayLink([](double) {});
    std::vector<double> ticks;
    Handle late;
    double begin = 0;
    const Handle timer = loop.scheduleTimer(0.1, false, [&] {
        begin = loop.now();
        late = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
        loop.gatherFrames(1);
    });
    ASSERT_TRUE(runUntil([&] { return !ticks.empty(); }));
    EXPECT_GE(ticks.front(), begin);
}

TEST_F(GlibRunLoopTest, LetsLinksGoWhileTheyTick) {
    int ticks = 0;
    Handle link;
    link = loop.addDisplayLink([&](double) {
        link.reset();
        ++ticks;
    });
    ASSERT_TRUE(runUntil([&] { return ticks > 0; }));
    EXPECT_EQ(millisecondsToWake(), -1);
}

TEST_F(GlibRunLoopTest, NeverWakesByItselfWhenNothingIsAwaited) {
    EXPECT_EQ(millisecondsToWake(), -1);
    int done = 0;
    {
        const Handle link = loop.addDisplayLink([&](double) { ++done; });
        EXPECT_NE(millisecondsToWake(), -1);
        const Handle timer = loop.scheduleTimer(0.01, true, [&] { ++done; });
        loop.performOnMain([&] { ++done; });
        loop.performInBackground([this] { loop.performOnMain([] {}); });
        ASSERT_TRUE(runUntil([&] { return done > 5; }));
    }
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    EXPECT_EQ(millisecondsToWake(), -1);
}

TEST_F(GlibRunLoopTest, LeavesNothingBehindInTheContext) {
    std::atomic<bool> finished = false;
    std::atomic<bool> begun = false;
    bool late = false;
    Handle timer;
    {
        GlibRunLoop other;
        timer = other.scheduleTimer(0.001, true, [&] { late = true; });
        other.performOnMain([&] { late = true; });
        other.performInBackground([&] {
            begun = true;
            other.performOnMain([&] { late = true; });
            std::this_thread::yield();
            finished = true;
        });
        while (!begun)
            std::this_thread::yield();
    }
    EXPECT_TRUE(finished); // what had begun was waited for
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    EXPECT_FALSE(late);
    timer.reset();
}

} // namespace
} // namespace foundation
