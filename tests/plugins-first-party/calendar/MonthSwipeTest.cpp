#include "plugins/calendar/MonthSwipe.h"

#include <gtest/gtest.h>

#include <vector>

namespace calendarplugin {

using vela::plugin::Point;
using vela::plugin::TouchPhase;
using Outcome = MonthSwipe::Outcome;

namespace {

constexpr double width = 260;

struct Step {
    Point point;
    double time;
};

/// What a finger along these points comes to, lifted at the last of them.
MonthSwipe::Result swipe(const std::vector<Step>& steps) {
    MonthSwipe swipe;
    swipe.handle({1, TouchPhase::Began, steps.front().point, steps.front().time}, width);
    for (std::size_t i = 1; i < steps.size(); ++i)
        swipe.handle({1, TouchPhase::Moved, steps[i].point, steps[i].time}, width);
    return swipe.handle({1, TouchPhase::Ended, steps.back().point, steps.back().time}, width);
}

} // namespace

TEST(MonthSwipe, AFingerThatHardlyMovesTaps) {
    const auto result = swipe({{{100, 100}, 0}, {{106, 105}, 0.1}});
    EXPECT_EQ(result.outcome, Outcome::Tap);
    EXPECT_EQ(result.point, (Point{106, 105}));
}

TEST(MonthSwipe, TurnsThePageWhenItHasGoneFarEnough) {
    EXPECT_EQ(swipe({{{200, 100}, 0}, {{150, 100}, 0.5}, {{119, 100}, 1}}).months, 1);
    EXPECT_EQ(swipe({{{100, 100}, 0}, {{150, 100}, 0.5}, {{181, 100}, 1}}).months, -1);
    EXPECT_EQ(swipe({{{200, 100}, 0}, {{150, 100}, 0.5}, {{130, 100}, 1}}).outcome, Outcome::None);
}

TEST(MonthSwipe, AFlickTurnsThePageAtOnceAndOneBackLeavesIt) {
    EXPECT_EQ(swipe({{{200, 100}, 0}, {{185, 100}, 0.03}, {{170, 100}, 0.06}}).months, 1);
    EXPECT_EQ(swipe({{{200, 100}, 0}, {{90, 100}, 0.3}, {{110, 100}, 0.33}}).outcome, Outcome::None);
}

TEST(MonthSwipe, AFingerThatRestsBeforeItIsLiftedIsNoFlick) {
    MonthSwipe swipe;
    swipe.handle({1, TouchPhase::Began, {200, 100}, 0}, width);
    swipe.handle({1, TouchPhase::Moved, {180, 100}, 0.03}, width);
    EXPECT_EQ(swipe.handle({1, TouchPhase::Ended, {180, 100}, 0.5}, width).outcome, Outcome::None);
}

TEST(MonthSwipe, UpAndDownTurnsByAYear) {
    EXPECT_EQ(swipe({{{100, 200}, 0}, {{102, 150}, 0.2}, {{104, 130}, 0.4}}).months, 12);
    EXPECT_EQ(swipe({{{100, 100}, 0}, {{102, 150}, 0.2}, {{104, 170}, 0.4}}).months, -12);
    EXPECT_EQ(swipe({{{100, 100}, 0}, {{100, 150}, 0.2}}).outcome, Outcome::None);
}

TEST(MonthSwipe, FollowsOneFingerAndForgetsACancelledOne) {
    MonthSwipe swipe;
    swipe.handle({1, TouchPhase::Began, {200, 100}, 0}, width);
    swipe.handle({2, TouchPhase::Began, {50, 100}, 0}, width);
    swipe.handle({2, TouchPhase::Moved, {150, 100}, 0.1}, width);
    EXPECT_EQ(swipe.offset(), 0);
    swipe.handle({1, TouchPhase::Moved, {170, 100}, 0.1}, width);
    EXPECT_EQ(swipe.offset(), -30);
    swipe.handle({1, TouchPhase::Cancelled, {170, 100}, 0.2}, width);
    EXPECT_EQ(swipe.offset(), 0);
    EXPECT_EQ(swipe.handle({1, TouchPhase::Ended, {10, 100}, 0.3}, width).outcome, Outcome::None);
}

} // namespace calendarplugin
