#include "tests/plugins-first-party/FirstPartyTest.h"

namespace plugins {
namespace {

class CalendarBundleTest : public FirstPartyTest {
protected:
    CalendarBundleTest() {
        setTimeOfDaySource([this] { return TimeOfDay{moment_ + loop.now(), secondsFromUtc_}; });
    }

    double moment_ = 1709208000; // 29 February 2024, 12:00 UTC
    int secondsFromUtc_ = 0;
};

TEST_F(CalendarBundleTest, ShowsToday) {
    open("Calendar");
    EXPECT_TRUE(shows("February 2024"));
    EXPECT_TRUE(shows("Thursday, 29 February 2024"));
    EXPECT_TRUE(shows("Day 60 of 366  ·  Week 9"));
}

TEST_F(CalendarBundleTest, TurnsItsPages) {
    open("Calendar");
    tap("›");
    EXPECT_TRUE(shows("March 2024"));
    tap("‹");
    tap("‹");
    EXPECT_TRUE(shows("January 2024"));
    tap("Today");
    EXPECT_TRUE(shows("February 2024"));
}

TEST_F(CalendarBundleTest, ASwipeTurnsThePage) {
    open("Calendar");
    support::Finger finger(loop);
    finger.down({220, 250});
    finger.moveTo({60, 255}, 8);
    finger.up();
    settle();
    EXPECT_TRUE(shows("March 2024"));
    EXPECT_EQ(framesDrawnWithin(1), 1); // it has come to rest
}

TEST_F(CalendarBundleTest, ANoteIsTypedAndKept) {
    open("Calendar");
    tap("15");
    EXPECT_TRUE(shows("Thursday, 15 February 2024"));
    tap("Add a note");
    type("dentist");
    closePlugin();
    open("Calendar");
    tap("15");
    EXPECT_TRUE(shows("dentist"));
    tap("16");
    EXPECT_FALSE(shows("dentist"));
}

TEST_F(CalendarBundleTest, KeepsTheFirstDayOfTheWeek) {
    open("Calendar");
    tap("From Monday");
    EXPECT_TRUE(shows("From Sunday"));
    open("Calendar");
    EXPECT_TRUE(shows("From Sunday"));
}

TEST_F(CalendarBundleTest, FollowsMidnightWhileItIsLookedAt) {
    open("Calendar");
    loop.advance(12 * 3600);
    EXPECT_TRUE(shows("Friday, 1 March 2024"));
    EXPECT_TRUE(shows("March 2024"));
}

TEST_F(CalendarBundleTest, NoticesAnotherZone) {
    open("Calendar");
    secondsFromUtc_ = 13 * 3600;
    loop.advance(61);
    EXPECT_TRUE(shows("Friday, 1 March 2024"));
}

TEST_F(CalendarBundleTest, RestsWhileItIsClosedOrThePanelAway) {
    open("Calendar");
    EXPECT_EQ(TimerState::running(), 1);
    expectRestAfter("appDidEnterBackground");
    send("velaInvoked");
    EXPECT_EQ(TimerState::running(), 0); // the panel is there, but the tile is closed
    send("appBecomeActive");
    EXPECT_EQ(TimerState::running(), 1);
    expectRestAfter("velaDismissed");
    moment_ += 86400;
    send("velaInvoked");
    settle();
    EXPECT_EQ(TimerState::running(), 1);
    EXPECT_TRUE(shows("Friday, 1 March 2024"));
}

TEST_F(CalendarBundleTest, PutsTheKeyboardAwayWithThePanel) {
    open("Calendar");
    tap("Add a note");
    type("x");
    ASSERT_NE(toolkit::TextInput::current(), nullptr);
    expectRestAfter("velaDismissed");
    EXPECT_EQ(toolkit::TextInput::current(), nullptr);
}

} // namespace
} // namespace plugins
