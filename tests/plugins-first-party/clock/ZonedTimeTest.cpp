#include "plugins/clock/ZonedTime.h"

#include "platform/plugins/TimeOfDay.h"
#include "plugins/clock/City.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace clockplugin {

namespace {

/// What the clocks of a zone show at a moment, seen from another.
ZonedTime timeIn(const char* zone, double seconds, const char* here = "UTC") {
    return ZonedTime::at(seconds, plugins::secondsFromUtcIn(zone, seconds).value(),
                         plugins::secondsFromUtcIn(here, seconds).value());
}

std::string clockIn(const char* zone, double seconds) {
    return timeIn(zone, seconds).clockText(HourStyle::TwentyFour);
}

} // namespace

TEST(ZonedTime, FollowsTheChangeToSummerTime) {
    const double change = 1711846800; // 31 March 2024, 01:00 UTC
    EXPECT_EQ(clockIn("Europe/Berlin", change - 1), "01:59");
    EXPECT_EQ(clockIn("Europe/Berlin", change), "03:00");
    EXPECT_EQ(clockIn("Europe/London", change - 1), "00:59");
    EXPECT_EQ(clockIn("Europe/London", change), "02:00");
    EXPECT_EQ(clockIn("Asia/Tokyo", change), "10:00");
}

TEST(ZonedTime, FollowsTheChangeBack) {
    const double change = 1729990800; // 27 October 2024, 01:00 UTC
    EXPECT_EQ(clockIn("Europe/Berlin", change - 1), "02:59");
    EXPECT_EQ(clockIn("Europe/Berlin", change), "02:00");
}

TEST(ZonedTime, DifferencesChangeInTheWeeksBetweenTheChanges) {
    EXPECT_EQ(timeIn("America/New_York", 1709208000, "Europe/London").relation(), "Today, −5 h");
    const double onlyAmericaHasChanged = 1710936000; // 20 March 2024
    EXPECT_EQ(timeIn("America/New_York", onlyAmericaHasChanged, "Europe/London").relation(), "Today, −4 h");
    EXPECT_EQ(timeIn("Australia/Sydney", 1709208000, "Europe/London").relation(), "Today, +11 h");
}

TEST(ZonedTime, SaysWhichDayItIsThere) {
    const double evening = 1709208000 + 10 * 3600; // 22:00 UTC
    EXPECT_EQ(timeIn("Asia/Kolkata", evening).relation(), "Tomorrow, +5:30 h");
    EXPECT_EQ(timeIn("Asia/Kolkata", evening).date(), "Friday, 1 March");
    EXPECT_EQ(timeIn("America/Los_Angeles", evening - 20 * 3600).relation(), "Yesterday, −8 h");
    EXPECT_EQ(timeIn("UTC", evening).relation(), "Today, same time");
}

TEST(ZonedTime, WritesBothStyles) {
    ZonedTime time;
    EXPECT_EQ(time.clockText(HourStyle::Twelve) + time.halfOfDay(HourStyle::Twelve), "12:00AM");
    time.hour = 12;
    EXPECT_EQ(time.clockText(HourStyle::Twelve) + time.halfOfDay(HourStyle::Twelve), "12:00PM");
    time.hour = 23;
    time.minute = 5;
    EXPECT_EQ(time.clockText(HourStyle::Twelve) + time.halfOfDay(HourStyle::Twelve), "11:05PM");
    EXPECT_EQ(time.clockText(HourStyle::TwentyFour) + time.halfOfDay(HourStyle::TwentyFour), "23:05");
}

TEST(ZonedTime, BearsMomentsFarAwayAndBefore1970) {
    EXPECT_EQ(ZonedTime::at(-1, 0, 0).clockText(HourStyle::TwentyFour), "23:59");
    EXPECT_EQ(ZonedTime::at(-1, 0, 0).day, -1);
    for (const double moment :
         {1e300, -1e300, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(ZonedTime::at(moment, 0, 0).hour, 0);
}

TEST(City, EveryZoneIsKnownOnce) {
    std::set<std::string_view> zones;
    for (const City& city : allCities()) {
        EXPECT_TRUE(plugins::secondsFromUtcIn(std::string(city.zone), 1709208000)) << city.zone;
        EXPECT_TRUE(zones.insert(city.zone).second) << city.zone;
    }
}

TEST(City, IsFoundByTheBeginningsOfWords) {
    const auto names = [](const char* text) {
        std::vector<std::string> result;
        for (const City* city : citiesMatching(text))
            result.emplace_back(city->name);
        return result;
    };
    EXPECT_EQ(names("york"), std::vector<std::string>{"New York"});
    EXPECT_EQ(names("  SAO "), std::vector<std::string>{"São Paulo"});
    EXPECT_EQ(names("jap"), std::vector<std::string>{"Tokyo"});
    EXPECT_EQ(names("ork"), std::vector<std::string>{});
    EXPECT_EQ(names("").size(), allCities().size());
    EXPECT_EQ(names("\xff\xfe"), std::vector<std::string>{});
}

} // namespace clockplugin
