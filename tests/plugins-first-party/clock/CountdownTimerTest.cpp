#include "plugins/clock/CountdownTimer.h"

#include "plugins/clock/DurationText.h"

#include <gtest/gtest.h>

namespace clockplugin {

namespace {

CountdownTimer started(int seconds, double wall) {
    CountdownTimer timer;
    timer.setDuration(seconds);
    timer.start(wall);
    return timer;
}

CountdownTimer restarted(const CountdownTimer& timer) {
    return CountdownTimer::restored(Fields(timer.kept().text()));
}

} // namespace

TEST(CountdownTimer, CountsDownByTheTimeOfDay) {
    const CountdownTimer timer = started(60, 1000);
    EXPECT_EQ(timer.remaining(1000), 60);
    EXPECT_EQ(timer.remaining(1030.5), 29.5);
    EXPECT_FALSE(timer.hasEnded(1059.9));
    EXPECT_TRUE(timer.hasEnded(1060));
    EXPECT_EQ(timer.remaining(5000), 0);
}

TEST(CountdownTimer, LosesNothingOverManyPauses) {
    CountdownTimer timer = started(100, 1000);
    double wall = 1000;
    for (int i = 0; i < 50; ++i) {
        wall += 1;
        timer.pause(wall);
        wall += 17.3; // paused: does not count
        timer.resume(wall);
    }
    EXPECT_NEAR(timer.remaining(wall), 50, 1e-6);
}

TEST(CountdownTimer, GoesOnOverARestart) {
    const CountdownTimer timer = started(60, 1000);
    EXPECT_NEAR(restarted(timer).remaining(1045), 15, 1e-3);
    EXPECT_TRUE(restarted(timer).hasEnded(2000)); // it has rung in the meantime
    CountdownTimer paused = timer;
    paused.pause(1010);
    EXPECT_NEAR(restarted(paused).remaining(9999), 50, 1e-3);
    EXPECT_EQ(restarted(paused).state(), CountdownTimer::State::Paused);
    EXPECT_EQ(restarted(CountdownTimer()).duration(), 300);
}

TEST(CountdownTimer, HasLimits) {
    CountdownTimer timer;
    timer.setDuration(0);
    EXPECT_EQ(timer.duration(), 1);
    timer.setDuration(1'000'000);
    EXPECT_EQ(timer.duration(), CountdownTimer::longest);
    timer.start(0);
    timer.setDuration(5);
    EXPECT_EQ(timer.duration(), CountdownTimer::longest);
}

TEST(CountdownTimer, AClockThatIsPutBackMakesItNoLonger) {
    const CountdownTimer timer = started(60, 1'000'000);
    EXPECT_EQ(timer.remaining(0), 60);
}

TEST(CountdownTimer, IsNotPausedAfterItsEnd) {
    CountdownTimer timer = started(10, 0);
    timer.pause(11);
    EXPECT_TRUE(timer.hasEnded(11));
    timer.restart(20);
    EXPECT_EQ(timer.remaining(21), 9);
    timer.cancel();
    EXPECT_EQ(timer.state(), CountdownTimer::State::Idle);
}

TEST(CountdownTimer, BearsAnyFile) {
    for (const char* text :
         {"", "garbage", "duration -5\nend x", "duration 99999999999999999999", "end -1", "remaining 0",
          "duration 10\nremaining 99999999", "\xff\xfe\n\n\n", "duration", "end 100000000000001"}) {
        const CountdownTimer timer = CountdownTimer::restored(Fields(text));
        EXPECT_EQ(timer.state(), CountdownTimer::State::Idle) << text;
        EXPECT_GE(timer.duration(), CountdownTimer::shortest);
        EXPECT_LE(timer.duration(), CountdownTimer::longest);
    }
}

TEST(DurationText, WritesLengthsOfTime) {
    EXPECT_EQ(countdownText(5), "0:05");
    EXPECT_EQ(countdownText(245), "4:05");
    EXPECT_EQ(countdownText(3845), "1:04:05");
    EXPECT_EQ(stopwatchText(0), "00:00.00");
    EXPECT_EQ(stopwatchText(24567), "04:05.67");
    EXPECT_EQ(stopwatchText(384567), "1:04:05.67");
    EXPECT_EQ(spokenDuration(5400), "1 hour 30 minutes");
    EXPECT_EQ(spokenDuration(61), "1 minute 1 second");
    EXPECT_EQ(spokenDuration(0), "0 seconds");
}

} // namespace clockplugin
