#include "platform/toolkit/scrolling/ScrollPhysics.h"
#include "platform/toolkit/scrolling/AxisMotion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace toolkit {
namespace {

double slope(const std::function<double(double)>& function, double t) {
    constexpr double step = 1e-5;
    return (function(t + step) - function(t - step)) / (2 * step);
}

TEST(ScrollPhysics, KeepsTheSameShareOfItsVelocityEachMillisecond) {
    EXPECT_NEAR(scrollVelocityAfter(1000, 0.001), 998, 1e-9);
    EXPECT_NEAR(scrollVelocityAfter(1000, 0.002), 998 * 0.998, 1e-9);
    EXPECT_NEAR(scrollVelocityAfter(-1000, 0.001), -998, 1e-9);
}

TEST(ScrollPhysics, TravelsAsFastAsItsVelocitySays) {
    for (const double t : {0.01, 0.3, 1.0, 2.5})
        EXPECT_NEAR(slope([](double at) { return scrollOffsetAfter(800, at); }, t),
                    scrollVelocityAfter(800, t), 1e-3);
}

TEST(ScrollPhysics, ComesToRestWhereItsTravelSays) {
    EXPECT_NEAR(scrollTravel(1000), 499.5, 0.01);
    EXPECT_NEAR(scrollOffsetAfter(1000, scrollRestTime(1000)), scrollTravel(1000), 0.1);
    EXPECT_DOUBLE_EQ(scrollTravel(-1000), -scrollTravel(1000));
}

TEST(ScrollPhysics, RestsWhenItMovesLessThanAPointInTenSeconds) {
    EXPECT_NEAR(scrollVelocityAfter(1500, scrollRestTime(1500)), 0.1, 1e-9);
    EXPECT_NEAR(scrollVelocityAfter(-1500, scrollRestTime(-1500)), -0.1, 1e-9);
    EXPECT_EQ(scrollRestTime(0.1), 0);
    EXPECT_EQ(scrollRestTime(0), 0);
}

TEST(ScrollPhysics, KnowsWhenItHasTravelledSoFar) {
    EXPECT_NEAR(scrollOffsetAfter(1000, scrollTimeToTravel(1000, 200)), 200, 1e-9);
    EXPECT_NEAR(scrollOffsetAfter(-1000, scrollTimeToTravel(-1000, -200)), -200, 1e-9);
    EXPECT_TRUE(std::isinf(scrollTimeToTravel(1000, 500)));
    EXPECT_TRUE(std::isinf(scrollTimeToTravel(1000, -1)));
}

TEST(ScrollPhysics, TheRubberBandGrowsEverMoreSlowlyAndStaysBelowTheExtent) {
    double before = 0, growth = 1e9;
    for (double distance = 50; distance < 5000; distance += 50) {
        const double shown = rubberBand(distance, 400);
        EXPECT_GT(shown, before);
        EXPECT_LT(shown - before, growth);
        EXPECT_LT(shown, 400);
        growth = shown - before;
        before = shown;
    }
    EXPECT_EQ(rubberBand(0, 400), 0);
    EXPECT_DOUBLE_EQ(rubberBand(-120, 400), -rubberBand(120, 400));
    EXPECT_EQ(rubberBand(100, 0), 0);
}

TEST(ScrollPhysics, TheRubberBandLeadsBackToTheFinger) {
    for (const double distance : {-300.0, -1.0, 0.0, 20.0, 1000.0})
        EXPECT_NEAR(rubberBandFinger(rubberBand(distance, 400), 400), distance, 1e-6);
    EXPECT_TRUE(std::isfinite(rubberBandFinger(400, 400)));
}

TEST(ScrollPhysics, TheBounceStartsWhereAndAsFastAsItIs) {
    EXPECT_EQ(bounceBack(80, 300, 0), 80);
    EXPECT_EQ(bounceVelocity(80, 300, 0), 300);
    for (const double t : {0.01, 0.1, 0.4})
        EXPECT_NEAR(slope([](double at) { return bounceBack(80, 300, at); }, t), bounceVelocity(80, 300, t),
                    1e-3);
}

TEST(ScrollPhysics, TheBounceComesBackWithoutPassingTheEdge) {
    for (double t = 0; t < 2; t += 0.01)
        EXPECT_GT(bounceBack(80, 300, t), 0);
    EXPECT_LT(bounceBack(80, 0, 0.5), 80 * 0.05);
    EXPECT_LT(bounceBack(80, 0, 1.2), 0.1);
    EXPECT_TRUE(std::isinf(bounceCrossing(80, 300)));
}

TEST(ScrollPhysics, ThrownBackFromBeyondTheEdgeItPassesIt) {
    const double crossing = bounceCrossing(20, -1000);
    ASSERT_TRUE(std::isfinite(crossing));
    EXPECT_NEAR(bounceBack(20, -1000, crossing), 0, 1e-9);
    EXPECT_LT(bounceVelocity(20, -1000, crossing), -100);
}

TEST(AxisMotion, SlidesToWhereItsTravelSaysWithinTheEdges) {
    const AxisMotion motion(100, 1000, 0, 5000);
    EXPECT_EQ(motion.offsetAfter(0), 100);
    EXPECT_NEAR(motion.offsetAfter(0.5), 100 + scrollOffsetAfter(1000, 0.5), 1e-9);
    EXPECT_NEAR(motion.restOffset(), 100 + scrollTravel(1000), 1e-9);
    EXPECT_EQ(motion.offsetAfter(motion.restTime()), motion.restOffset());
}

TEST(AxisMotion, RestsAtOnceWithoutVelocity) {
    const AxisMotion motion(100, 0, 0, 5000);
    EXPECT_EQ(motion.restTime(), 0);
    EXPECT_EQ(motion.restOffset(), 100);
}

TEST(AxisMotion, RunsBeyondTheEdgeAndComesBackToIt) {
    const AxisMotion motion(300, 2000, 0, 500);
    double farthest = 0;
    for (double t = 0; t < motion.restTime(); t += 0.001)
        farthest = std::max(farthest, motion.offsetAfter(t));
    EXPECT_GT(farthest, 520);
    EXPECT_LT(farthest, 600);
    EXPECT_EQ(motion.restOffset(), 500);
    EXPECT_EQ(motion.offsetAfter(motion.restTime()), 500);
    EXPECT_LT(motion.restTime(), 2);
}

TEST(AxisMotion, MovesWithoutJumpsOrKinks) {
    for (const AxisMotion& motion : {AxisMotion(300, 2000, 0, 500), AxisMotion(-60, 4000, 0, 500),
                                     AxisMotion(520, -3000, 0, 500), AxisMotion(700, 100, 0, 500)}) {
        constexpr double step = 1e-4;
        for (double t = 0; t + step < motion.restTime(); t += step) {
            EXPECT_NEAR(motion.offsetAfter(t + step) - motion.offsetAfter(t), motion.velocityAfter(t) * step,
                        0.01);
            EXPECT_NEAR(motion.velocityAfter(t + step), motion.velocityAfter(t), 15);
        }
        EXPECT_NEAR(motion.offsetAfter(motion.restTime() - step), motion.restOffset(), 0.2);
    }
}

TEST(AxisMotion, ThrownInFromBeyondOneEdgeItSlidesAcrossAndBouncesOffTheOther) {
    const AxisMotion motion(-60, 4000, 0, 500);
    EXPECT_EQ(motion.offsetAfter(0), -60);
    EXPECT_EQ(motion.restOffset(), 500);
}

TEST(AxisMotion, ComesBackFromBeyondAnEdge) {
    EXPECT_EQ(AxisMotion(-40, 0, 0, 500).restOffset(), 0);
    EXPECT_EQ(AxisMotion(540, 0, 0, 500).restOffset(), 500);
    EXPECT_EQ(AxisMotion(540, 900, 0, 500).restOffset(), 500);
}

TEST(AxisMotion, KeepsTheContentInSightHoweverHardItIsThrown) {
    const AxisMotion motion(10, 1e6, 0, 500);
    double farthest = 0;
    for (double t = 0; t < motion.restTime(); t += 0.001)
        farthest = std::max(farthest, motion.offsetAfter(t));
    EXPECT_GT(farthest, 600);
    EXPECT_LT(farthest, 620);
}

TEST(AxisMotion, HasAnEndForAnyVelocity) {
    for (const double velocity : {1e6, -1e6, 1e12, -1e12}) {
        const AxisMotion motion(10, velocity, 0, 500);
        EXPECT_LT(motion.restTime(), 20);
        EXPECT_TRUE(motion.restOffset() == 0 || motion.restOffset() == 500);
    }
}

} // namespace
} // namespace toolkit
