#include "plugins/clock/Stopwatch.h"

#include <gtest/gtest.h>

#include <numeric>

namespace clockplugin {

TEST(Stopwatch, CountsOnlyWhileItRuns) {
    Stopwatch stopwatch;
    EXPECT_TRUE(stopwatch.isReset());
    stopwatch.start(100);
    EXPECT_EQ(stopwatch.elapsed(101.25), 125);
    stopwatch.start(105); // it runs already
    stopwatch.stop(110);
    EXPECT_EQ(stopwatch.elapsed(500), 1000);
    stopwatch.start(1000);
    EXPECT_EQ(stopwatch.elapsed(1000.5), 1050);
    stopwatch.reset(); // not while it runs
    EXPECT_EQ(stopwatch.elapsed(1000.5), 1050);
    stopwatch.stop(1001);
    stopwatch.reset();
    EXPECT_TRUE(stopwatch.isReset());
}

TEST(Stopwatch, LosesNothingOverManyPauses) {
    Stopwatch stopwatch;
    double now = 0;
    for (int i = 0; i < 1000; ++i) {
        stopwatch.start(now);
        now += 0.1;
        stopwatch.stop(now);
        now += 3.7;
    }
    EXPECT_EQ(stopwatch.elapsed(now), 10'000);
}

TEST(Stopwatch, LapsAddUpToTheTotal) {
    Stopwatch stopwatch;
    stopwatch.start(0);
    double now = 0;
    for (int i = 0; i < 50; ++i) {
        now += 1.0 / 3;
        stopwatch.lap(now);
    }
    const auto& laps = stopwatch.laps();
    EXPECT_EQ(std::accumulate(laps.begin(), laps.end(), Stopwatch::Hundredths{0}), stopwatch.elapsed(now));
    EXPECT_EQ(stopwatch.currentLap(now + 0.5), stopwatch.elapsed(now + 0.5) - stopwatch.elapsed(now));
}

TEST(Stopwatch, FindsTheFastestAndTheSlowestLap) {
    Stopwatch stopwatch;
    stopwatch.start(0);
    stopwatch.lap(10);
    EXPECT_FALSE(stopwatch.fastestLap());
    stopwatch.lap(20);
    EXPECT_FALSE(stopwatch.fastestLap()); // both alike
    stopwatch.lap(25);
    stopwatch.lap(45);
    EXPECT_EQ(stopwatch.fastestLap(), 2u);
    EXPECT_EQ(stopwatch.slowestLap(), 3u);
}

TEST(Stopwatch, HasRoomForNinetyNineLaps) {
    Stopwatch stopwatch;
    stopwatch.lap(1); // does not run
    EXPECT_TRUE(stopwatch.laps().empty());
    stopwatch.start(0);
    for (int i = 1; i <= 200; ++i)
        stopwatch.lap(i);
    EXPECT_EQ(stopwatch.laps().size(), Stopwatch::mostLaps);
    EXPECT_FALSE(stopwatch.canLap());
}

TEST(Stopwatch, RunsOnOverARestart) {
    Stopwatch stopwatch;
    stopwatch.start(5);
    stopwatch.lap(7);
    const Fields kept(stopwatch.kept(10, 50'000).text());
    // The clock has begun anew, and half a minute has gone by.
    const Stopwatch restored = Stopwatch::restored(kept, 2, 50'030);
    EXPECT_TRUE(restored.isRunning());
    EXPECT_EQ(restored.elapsed(2), 3500);
    EXPECT_EQ(restored.laps(), std::vector<Stopwatch::Hundredths>{200});
    stopwatch.stop(10);
    EXPECT_EQ(Stopwatch::restored(Fields(stopwatch.kept(10, 50'000).text()), 0, 99'999).elapsed(0), 500);
}

TEST(Stopwatch, BearsAnyFile) {
    for (const char* text : {"", "garbage", "accumulated -1", "started x", "lap-0 5", "\xff\xff",
                             "accumulated 99999999999999999999999"})
        EXPECT_TRUE(Stopwatch::restored(Fields(text), 10, 1000).isReset()) << text;
    // From a clock that was set to the future.
    EXPECT_EQ(Stopwatch::restored(Fields("started 5000000\n"), 10, 1000).elapsed(10), 0);
}

} // namespace clockplugin
