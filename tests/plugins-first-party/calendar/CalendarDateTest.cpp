#include "plugins/calendar/CalendarDate.h"
#include "plugins/calendar/DateText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace calendarplugin {

namespace {

Date day(const std::string& text) {
    return dateFromIsoText(text).value();
}

IsoWeek weekOf(const std::string& text) {
    return isoWeek(day(text));
}

} // namespace

TEST(CalendarDate, KnowsLeapYears) {
    EXPECT_EQ(daysInYear(2023), 365);
    EXPECT_EQ(daysInYear(2024), 366);
    EXPECT_EQ(daysInYear(1900), 365);
    EXPECT_EQ(daysInYear(2000), 366);
    EXPECT_FALSE(dateFromIsoText("2023-02-29"));
    EXPECT_FALSE(dateFromIsoText("1900-02-29"));
    EXPECT_TRUE(dateFromIsoText("2000-02-29"));
    EXPECT_EQ(dayOfYear(day("2024-12-31")), 366);
    EXPECT_EQ(dayOfYear(day("2023-03-01")), 60);
    EXPECT_EQ(dayOfYear(day("2024-03-01")), 61);
}

TEST(CalendarDate, NumbersWeeksByTheirThursday) {
    EXPECT_EQ(weekOf("2016-01-01"), (IsoWeek{2015, 53}));
    EXPECT_EQ(weekOf("2016-01-04"), (IsoWeek{2016, 1}));
    EXPECT_EQ(weekOf("2018-12-31"), (IsoWeek{2019, 1}));
    EXPECT_EQ(weekOf("2020-12-31"), (IsoWeek{2020, 53}));
    EXPECT_EQ(weekOf("2021-01-03"), (IsoWeek{2020, 53}));
    EXPECT_EQ(weekOf("2021-01-04"), (IsoWeek{2021, 1}));
    EXPECT_EQ(weekOf("2024-02-29"), (IsoWeek{2024, 9}));
}

TEST(CalendarDate, WeekNumbersFollowEachOtherThroughFourCenturies) {
    Date date = day("1900-01-01"); // a Monday
    IsoWeek week = isoWeek(date);
    while (date < day("2300-01-01")) {
        const Date next = dateAfter(date, 7).value();
        const IsoWeek following = isoWeek(next);
        if (following.week == 1) {
            EXPECT_TRUE(week.week == 52 || week.week == 53) << isoText(date);
            EXPECT_EQ(following.year, week.year + 1) << isoText(date);
        } else {
            EXPECT_EQ(following, (IsoWeek{week.year, week.week + 1})) << isoText(date);
        }
        date = next;
        week = following;
    }
}

TEST(CalendarDate, ADayDependsOnTheZone) {
    const double lateEvening = 1709251200 - 1800; // 29 February 2024, 23:30 UTC
    EXPECT_EQ(dateAt(lateEvening, 0), day("2024-02-29"));
    EXPECT_EQ(dateAt(lateEvening, 3600), day("2024-03-01"));
    EXPECT_EQ(dateAt(-1, 0), day("1969-12-31"));
    EXPECT_DOUBLE_EQ(secondsToMidnight(lateEvening, 0), 1800);
    EXPECT_DOUBLE_EQ(secondsToMidnight(lateEvening, 3600), 86400 - 1800);
    EXPECT_DOUBLE_EQ(secondsToMidnight(0, 0), 86400);
}

TEST(CalendarDate, StaysWithinTheYearsThatAreKnown) {
    EXPECT_EQ(dateAt(1e18, 0), day("9999-12-31"));
    EXPECT_EQ(dateAt(-1e18, 0), day("0001-01-01"));
    EXPECT_EQ(dateAt(std::numeric_limits<double>::quiet_NaN(), 0), day("1970-01-01"));
    EXPECT_GT(secondsToMidnight(std::numeric_limits<double>::infinity(), 0), 0);
    EXPECT_FALSE(dateAfter(day("9999-12-31"), 1));
    EXPECT_FALSE(dateAfter(day("0001-01-01"), -1));
    const Month lastMonth = std::chrono::year(9999) / 12;
    const Month firstMonth = std::chrono::year(1) / 1;
    EXPECT_EQ(monthAfter(lastMonth, 1), lastMonth);
    EXPECT_EQ(monthAfter(firstMonth, -1), firstMonth);
    EXPECT_EQ(monthAfter(firstMonth, std::numeric_limits<int>::max()), lastMonth);
    EXPECT_EQ(monthAfter(lastMonth, std::numeric_limits<int>::min()), firstMonth);
}

TEST(CalendarDate, MonthsAreCountedOverTheYearsEnd) {
    const Month december = std::chrono::year(2023) / 12;
    EXPECT_EQ(monthAfter(december, 1), std::chrono::year(2024) / 1);
    EXPECT_EQ(monthAfter(december, 14), std::chrono::year(2025) / 2);
    EXPECT_EQ(monthAfter(december, -12), std::chrono::year(2022) / 12);
    EXPECT_EQ(movedTo(day("2024-01-31"), std::chrono::year(2024) / 2), day("2024-02-29"));
    EXPECT_EQ(movedTo(day("2024-01-31"), std::chrono::year(2023) / 2), day("2023-02-28"));
}

TEST(DateText, SpeaksOfDays) {
    EXPECT_EQ(monthTitle(std::chrono::year(2026) / 9), "September 2026");
    EXPECT_EQ(shortMonthTitle(std::chrono::year(2026) / 9), "Sep 2026");
    EXPECT_EQ(fullDate(day("2026-05-06")), "Wednesday, 6 May 2026");
    EXPECT_EQ(dayAndWeek(day("2026-05-06")), "Day 126 of 365  ·  Week 19");
    EXPECT_EQ(dayAndWeek(day("2016-01-01")), "Day 1 of 366  ·  Week 53 of 2015");
    EXPECT_STREQ(weekdayHeads(WeekStart::Monday)[6], "S");
    EXPECT_STREQ(weekdayHeads(WeekStart::Sunday)[1], "M");
}

TEST(DateText, ReadsOnlyDaysThatExistInOneForm) {
    for (const char* text :
         {"", "2024-2-29", "2024-02-30", "2024/02/29", "0000-01-01", "2024-13-01", "2024-00-10", "2024-01-00",
          "20240229", " 2024-02-29", "2024-02-29 ", "-024-02-29", "2024-02-2x", "\xff\xff\xff\xff-01-01"})
        EXPECT_FALSE(dateFromIsoText(text)) << text;
    EXPECT_EQ(isoText(day("0001-01-01")), "0001-01-01");
    EXPECT_EQ(isoText(day("9999-12-31")), "9999-12-31");
}

} // namespace calendarplugin
