// Days of the calendar from 1 January of the year 1 to 31 December 9999, reckoned by today's rules
// throughout, and what is derived from them: weekdays, weeks, days of the year.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace calendarplugin {

using Date = std::chrono::year_month_day;
using Month = std::chrono::year_month;

inline constexpr int firstYear = 1;
inline constexpr int lastYear = 9999;

enum class WeekStart { Sunday, Monday };

bool isInRange(Month month);
/// A day that exists, within the years that are known.
bool isInRange(Date date);

/// The day of a moment, seconds since 1970, in a zone; the nearest known day for moments far away.
Date dateAt(double seconds, int secondsFromUtc);
/// Seconds from a moment to the next midnight in a zone; above 0.
double secondsToMidnight(double seconds, int secondsFromUtc);

/// The month some months later, or earlier, held within the years that are known.
Month monthAfter(Month month, int months);
/// The day some days later, or earlier; nothing beyond the years that are known.
std::optional<Date> dateAfter(Date date, int days);
/// The same day in another month, or that month's last one.
Date movedTo(Date date, Month month);

/// From 1.
int dayOfYear(Date date);
int daysInYear(int year);

/// By ISO 8601: weeks begin on Monday, and the first one holds the year's first Thursday, so that days around
/// New Year may belong to a week of the neighbouring year.
struct IsoWeek {
    int year = 0;
    int week = 0;
    friend bool operator==(const IsoWeek&, const IsoWeek&) = default;
};
IsoWeek isoWeek(Date date);

/// How many columns right of the week's first day the date stands.
int columnOf(Date date, WeekStart start);

} // namespace calendarplugin
