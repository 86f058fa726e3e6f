#include "platform/foundation/VirtualRunLoop.h"

#include <vector>

#include <gtest/gtest.h>

namespace foundation {
namespace {

using Times = std::vector<double>;

TEST(VirtualRunLoop, IsTheMainLoopOnlyWhileItStands) {
    {
        VirtualRunLoop loop;
        RunLoop::setMain(&loop);
        EXPECT_EQ(&RunLoop::main(), &loop);
    }
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(RunLoop::main(), "before any loop became the main one");
}

TEST(VirtualRunLoop, LandsExactlyWhereItIsSent) {
    VirtualRunLoop loop;
    double expected = 0;
    const Handle timer = loop.scheduleTimer(0.013, true, [] {});
    const Handle link = loop.addDisplayLink([](double) {});
    for (const double step : {0.1, 0.2, 1.0 / 3, 0.0, 1e-7, 12.345}) {
        loop.advance(step);
        expected += step;
        EXPECT_EQ(loop.now(), expected);
    }
    loop.advance(-5);
    EXPECT_EQ(loop.now(), expected);
}

TEST(VirtualRunLoop, FiresATimerOnceAtItsMoment) {
    VirtualRunLoop loop;
    Times fired;
    const Handle timer = loop.scheduleTimer(0.5, false, [&] { fired.push_back(loop.now()); });
    loop.advance(0.4);
    EXPECT_TRUE(fired.empty());
    loop.advance(10);
    EXPECT_EQ(fired, Times{0.5});
}

TEST(VirtualRunLoop, RepeatsWithoutDrift) {
    VirtualRunLoop loop;
    loop.advance(1.7);
    Times fired;
    const Handle timer = loop.scheduleTimer(0.1, true, [&] { fired.push_back(loop.now()); });
    loop.advance(1000);
    ASSERT_EQ(fired.size(), 10000u);
    for (std::size_t beat = 1; beat <= fired.size(); ++beat)
        ASSERT_EQ(fired[beat - 1], 1.7 + static_cast<double>(beat) * 0.1);
}

TEST(VirtualRunLoop, CountsMomentsThatRoundingPartsAsOne) {
    VirtualRunLoop loop;
    int fired = 0;
    const Handle timer = loop.scheduleTimer(0.8, true, [&] { ++fired; });
    loop.advance(0.7);
    loop.advance(0.1); // a little less than 0.8
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(loop.now(), 0.7 + 0.1);
    loop.advance(0.7);
    EXPECT_EQ(fired, 1);
}

TEST(VirtualRunLoop, FiresNothingOnceItsHandleIsGone) {
    VirtualRunLoop loop;
    std::string fired;
    Handle itself;
    Handle other;
    itself = loop.scheduleTimer(0.1, true, [&] {
        itself.reset();
        other.reset();
        fired += "i";
    });
    other = loop.scheduleTimer(0.1, true, [&] { fired += "o"; });
    loop.scheduleTimer(0.1, false, [&] { fired += "dropped"; }).reset();
    loop.advance(1);
    EXPECT_EQ(fired, "i");
}

TEST(VirtualRunLoop, RunsWhatIsDueTogetherInTheOrderOfScheduling) {
    VirtualRunLoop loop;
    std::string order;
    std::vector<Handle> handles;
    handles.push_back(loop.addDisplayLink([&](double now) {
        if (now == 0.5)
            order += "L";
    }));
    handles.push_back(loop.scheduleTimer(0.5, false, [&] {
        order += "1";
        loop.performOnMain([&] { order += "B"; });
    }));
    handles.push_back(loop.scheduleTimer(0.25, true, [&] {
        if (loop.now() == 0.5)
            order += "2";
    }));
    handles.push_back(loop.scheduleTimer(0.5, false, [&] { order += "3"; }));
    handles.push_back(loop.addTurnHook(TurnPhase::Commit, [&] {
        if (loop.now() == 0.5)
            order += "C";
    }));
    handles.push_back(loop.addTurnHook(TurnPhase::Layout, [&] {
        if (loop.now() == 0.5)
            order += "Y";
    }));
    loop.advance(0.51);
    EXPECT_EQ(order, "123LBYC");
}

TEST(VirtualRunLoop, TicksOnAFixedGridOfSixtiethsOfASecond) {
    VirtualRunLoop loop;
    loop.advance(0.02);
    Times ticks;
    {
        const Handle link = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
        loop.advance(0.98);
    }
    loop.advance(1);
    ASSERT_EQ(ticks.size(), 59u);
    for (std::size_t tick = 0; tick < ticks.size(); ++tick)
        EXPECT_EQ(ticks[tick], static_cast<double>(tick + 2) / 60);
}

TEST(VirtualRunLoop, FirstTicksALinkInTheFrameAfterItCame) {
    VirtualRunLoop loop;
    loop.advance(1.0 / 60);
    Times ticks;
    const Handle link = loop.addDisplayLink([&](double now) { ticks.push_back(now); });
    loop.advance(0);
    EXPECT_TRUE(ticks.empty());
    loop.advance(RunLoop::frameInterval);
    EXPECT_EQ(ticks, Times{2.0 / 60});
}

TEST(VirtualRunLoop, LetsLinksGoAndComeDuringATick) {
    VirtualRunLoop loop;
    std::string ticks;
    Handle first;
    Handle second;
    Handle third;
    first = loop.addDisplayLink([&](double) {
        first.reset();
        second.reset();
        third = loop.addDisplayLink([&](double) { ticks += "3"; });
        ticks += "1";
    });
    second = loop.addDisplayLink([&](double) { ticks += "2"; });
    loop.advance(2.0 / 60);
    EXPECT_EQ(ticks, "13");
}

TEST(VirtualRunLoop, RunsBlocksInLaterTurns) {
    VirtualRunLoop loop;
    std::string order;
    loop.performOnMain([&] {
        order += "a";
        loop.performOnMain([&] { order += "c"; });
        order += "b";
    });
    EXPECT_EQ(order, "");
    loop.turn();
    EXPECT_EQ(order, "ab");
    loop.turn();
    EXPECT_EQ(order, "abc");
}

TEST(VirtualRunLoop, RunsBlocksOfTurnHooksInTheNextTurn) {
    VirtualRunLoop loop;
    int asked = 0;
    int ran = 0;
    const Handle hook = loop.addTurnHook(TurnPhase::Commit, [&] {
        if (asked++ == 0)
            loop.performOnMain([&] { ++ran; });
    });
    loop.turn();
    EXPECT_EQ(ran, 0);
    loop.turn();
    EXPECT_EQ(ran, 1);
}

TEST(VirtualRunLoop, RunsEveryWaitingBlockBeforeTheClockMovesOn) {
    VirtualRunLoop loop;
    Times ran;
    loop.performOnMain([&] {
        ran.push_back(loop.now());
        loop.performOnMain([&] { ran.push_back(loop.now()); });
    });
    loop.performInBackground([&] { ran.push_back(loop.now()); });
    loop.advance(5);
    EXPECT_EQ(ran, (Times{0, 0, 0}));
    const Handle timer = loop.scheduleTimer(1, false, [&] {
        loop.performInBackground([&] { loop.performOnMain([&] { ran.push_back(loop.now()); }); });
    });
    loop.advance(5);
    EXPECT_EQ(ran.back(), 6);
}

TEST(VirtualRunLoop, IsNotHeldUpByBlocksThatAlwaysAskForMore) {
    VirtualRunLoop loop;
    std::uint64_t ran = 0;
    std::function<void()> again = [&] {
        ++ran;
        loop.performOnMain(again);
    };
    loop.performOnMain(again);
    const Handle timer = loop.scheduleTimer(0.5, false, [] {});
    loop.advance(1);
    EXPECT_EQ(loop.now(), 1);
    EXPECT_GT(ran, 1u);
}

TEST(VirtualRunLoop, EndsEveryTurnWithLayoutThenCommit) {
    VirtualRunLoop loop;
    std::string order;
    const Handle commit = loop.addTurnHook(TurnPhase::Commit, [&] { order += "C"; });
    const Handle first = loop.addTurnHook(TurnPhase::Layout, [&] { order += "1"; });
    Handle second = loop.addTurnHook(TurnPhase::Layout, [&] { order += "2"; });
    loop.turn();
    second.reset();
    loop.turn();
    EXPECT_EQ(order, "12C1C");
}

TEST(VirtualRunLoop, LetsTurnHooksGoAndComeDuringATurn) {
    VirtualRunLoop loop;
    std::string order;
    Handle itself;
    Handle added;
    itself = loop.addTurnHook(TurnPhase::Layout, [&] {
        itself.reset();
        added = loop.addTurnHook(TurnPhase::Commit, [&] { order += "n"; });
        order += "i";
    });
    loop.turn();
    EXPECT_EQ(order, "i");
    loop.turn();
    EXPECT_EQ(order, "in");
}

TEST(VirtualRunLoop, RunsUntilAConditionHolds) {
    VirtualRunLoop loop;
    bool done = false;
    const Handle timer = loop.scheduleTimer(0.5, false, [&] { done = true; });
    EXPECT_FALSE(loop.runUntil([&] { return done; }, 0.3));
    EXPECT_DOUBLE_EQ(loop.now(), 0.3);
    EXPECT_TRUE(loop.runUntil([&] { return done; }, 0.3));
    EXPECT_EQ(loop.now(), 0.5);
    EXPECT_TRUE(loop.runUntil([] { return true; }, 0));
    EXPECT_EQ(loop.now(), 0.5);
}

TEST(VirtualRunLoop, FiresTimersOfNoIntervalWithoutMovingOn) {
    VirtualRunLoop loop;
    int fired = 0;
    const Handle timer = loop.scheduleTimer(0, false, [&] { ++fired; });
    const Handle negative = loop.scheduleTimer(-1, false, [&] { ++fired; });
    loop.advance(0);
    EXPECT_EQ(fired, 2);
    const Handle repeating = loop.scheduleTimer(0, true, [&] { ++fired; });
    loop.advance(0.01);
    EXPECT_EQ(fired, 102);
    EXPECT_EQ(loop.now(), 0.01);
}

TEST(VirtualRunLoop, GivesTheSameTranscriptEveryTime) {
    const auto transcript = [] {
        VirtualRunLoop loop;
        std::vector<std::pair<int, double>> events;
        std::vector<Handle> handles;
        for (int timer = 1; timer <= 7; ++timer)
            handles.push_back(loop.scheduleTimer(
                0.01 * timer, true, [&events, &loop, timer] { events.emplace_back(timer, loop.now()); }));
        handles.push_back(loop.addDisplayLink([&](double now) { events.emplace_back(0, now); }));
        loop.advance(3);
        return events;
    };
    EXPECT_EQ(transcript(), transcript());
}

TEST(VirtualRunLoop, MayGoBeforeItsHandles) {
    Handle timer;
    Handle link;
    Handle hook;
    {
        VirtualRunLoop loop;
        timer = loop.scheduleTimer(1, true, [] {});
        link = loop.addDisplayLink([](double) {});
        hook = loop.addTurnHook(TurnPhase::Layout, [] {});
    }
    timer.reset();
    link.reset();
    hook.reset();
    EXPECT_FALSE(timer);
}

} // namespace
} // namespace foundation
