#include "tests/plugins-first-party/FirstPartyTest.h"

namespace plugins {
namespace {

class ClockBundleTest : public FirstPartyTest {
protected:
    ClockBundleTest() {
        setTimeOfDaySource([this] { return TimeOfDay{moment_ + loop.now(), 0}; });
    }

    double moment_ = 1710936000; // 20 March 2024, 12:00 UTC
};

TEST_F(ClockBundleTest, ShowsTheTimesOfTheWorld) {
    open("Clock");
    EXPECT_TRUE(shows("Wednesday, 20 March"));
    EXPECT_TRUE(shows("08:00")); // New York
    EXPECT_TRUE(shows("21:00")); // Tokyo
    loop.advance(60);
    EXPECT_TRUE(shows("08:01"));
    tap("Analog");
    EXPECT_FALSE(shows("08:01"));
}

TEST_F(ClockBundleTest, AddsAndRemovesCities) {
    open("Clock");
    tap("Add");
    tap("City or country");
    type("lisb");
    EXPECT_FALSE(shows("Tokyo"));
    tap("Lisbon");
    EXPECT_TRUE(shows("Lisbon"));
    EXPECT_EQ(toolkit::TextInput::current(), nullptr);
    open("Clock");
    EXPECT_TRUE(shows("Lisbon"));
}

TEST_F(ClockBundleTest, TheTimerGoesOnWhileNobodyLooksAndOverARestart) {
    open("Clock");
    tap("Timer");
    tap("5 m");
    tap("Start");
    EXPECT_TRUE(shows("until 12:05"));
    expectRestAfter("velaDismissed");
    send("velaInvoked");
    settle();
    loop.advance(60);
    open("Clock");
    EXPECT_TRUE(shows("until 12:05"));
    loop.advance(200);
    EXPECT_TRUE(shows("Time’s up"));
    tap("Done");
    EXPECT_TRUE(shows("Start"));
}

TEST_F(ClockBundleTest, ATimerThatEndedWhileNobodyLookedSaysSoWhenItIsSeen) {
    open("Clock");
    tap("Timer");
    tap("5 m");
    tap("Start");
    send("velaDismissed");
    loop.advance(1000);
    send("velaInvoked");
    settle();
    EXPECT_TRUE(shows("Time’s up"));
    EXPECT_TRUE(shows("11 minutes ago"));
    expectRestAfter("appDidEnterBackground"); // it does not pulse either
}

TEST_F(ClockBundleTest, TheTimerCanBePaused) {
    open("Clock");
    tap("Timer");
    tap("5 m");
    tap("Start");
    tap("Pause");
    EXPECT_TRUE(shows("Paused"));
    framesDrawnWithin(0.1);
    EXPECT_EQ(TimerState::running(), 0);
    loop.advance(3600);
    EXPECT_FALSE(shows("Time’s up"));
    tap("Resume");
    EXPECT_TRUE(shows("until 13:05"));
}

TEST_F(ClockBundleTest, TheStopwatchCountsWhileNobodyLooks) {
    open("Clock");
    tap("Stopwatch");
    tap("Start");
    expectRestAfter("appDidEnterBackground");
    send("appBecomeActive");
    tap("Stop");
    const auto all = texts();
    const auto time = std::find_if(all.begin(), all.end(), [](const std::string& text) {
        return text.rfind("01:1", 0) == 0; // 70 seconds of rest, and what surrounds them
    });
    EXPECT_NE(time, all.end());
    tap("Reset");
    EXPECT_TRUE(shows("00:00.00"));
}

TEST_F(ClockBundleTest, RestsOnEveryPage) {
    open("Clock");
    for (const char* tab : {"Timer", "Stopwatch", "World"}) {
        tap(tab);
        for (const char* message : {"appDidEnterBackground", "velaDismissed"}) {
            expectRestAfter(message);
            send("velaInvoked");
            send("appBecomeActive");
        }
    }
    EXPECT_EQ(TimerState::running(), 1); // the world's seconds go on
    EXPECT_GT(framesDrawnWithin(3), 2);
}

TEST_F(ClockBundleTest, BearsDamagedFiles) {
    open("Clock");
    tap("Stopwatch");
    tap("Start");
    PluginStorage storage("org.lanternhub.vela.clock");
    ASSERT_FALSE(storage.names().empty());
    for (const char* name : {"stopwatch.txt", "timer.txt", "cities.txt", "settings.txt"})
        ASSERT_TRUE(storage.write(name, std::string("\xff\0\n\n garbage", 12)));
    open("Clock");
    EXPECT_TRUE(shows("World"));
    tap("Stopwatch");
    EXPECT_TRUE(shows("00:00.00"));
}

} // namespace
} // namespace plugins
