#include "platform/plugins/TimeOfDay.h"

#include "tests/support/ToolkitTest.h"

namespace plugins {
namespace {

class TimeOfDayTest : public support::ToolkitTest {
protected:
    ~TimeOfDayTest() override { setTimeOfDaySource(nullptr); }
};

constexpr double winter = 1453000000; // January 2016
constexpr double summer = 1469000000; // July 2016

TEST_F(TimeOfDayTest, FollowsTheRunLoopFromAFixedMorning) {
    const double begin = timeOfDay().seconds;
    loop.advance(90);
    EXPECT_NEAR(timeOfDay().seconds - begin, 90, 1e-6);
    EXPECT_EQ(timeOfDay().secondsFromUtc, 0);
}

TEST_F(TimeOfDayTest, IsTheHostsWhenThereIsOne) {
    setTimeOfDaySource([] { return TimeOfDay{1000, 3600}; });
    EXPECT_EQ(timeOfDay().seconds, 1000);
    EXPECT_EQ(timeOfDay().secondsFromUtc, 3600);
}

TEST_F(TimeOfDayTest, KnowsTheWorldsZonesWithTheirSummers) {
    EXPECT_EQ(secondsFromUtcIn("Europe/Lisbon", winter), 0);
    EXPECT_EQ(secondsFromUtcIn("Europe/Lisbon", summer), 3600);
    EXPECT_EQ(secondsFromUtcIn("America/New_York", winter), -5 * 3600);
    EXPECT_EQ(secondsFromUtcIn("Asia/Kolkata", winter), 19800);
    EXPECT_EQ(secondsFromUtcIn("UTC", summer), 0);
}

TEST_F(TimeOfDayTest, KnowsNoOthers) {
    for (const char* name :
         {"", "Nowhere/Atlantis", "../../etc/passwd", "/etc/localtime", "Europe/../Europe/Paris"})
        EXPECT_EQ(secondsFromUtcIn(name, summer), std::nullopt) << name;
    EXPECT_EQ(secondsFromUtcIn("Europe/Paris", std::numeric_limits<double>::quiet_NaN()), std::nullopt);
    EXPECT_EQ(secondsFromUtcIn("Europe/Paris", 1e300), std::nullopt);
}

} // namespace
} // namespace plugins
