#include "CalendarDate.h"

#include <algorithm>
#include <cmath>

namespace calendarplugin {

using namespace std::chrono;

namespace {
constexpr Date firstDate{year(firstYear), January, day(1)};
constexpr Date lastDate{year(lastYear), December, day(31)};
constexpr double secondsOfDay = 86400;

double localSeconds(double seconds, int secondsFromUtc) {
    return std::isfinite(seconds) ? seconds + secondsFromUtc : 0;
}
} // namespace

bool isInRange(Month month) {
    return month.ok() && static_cast<int>(month.year()) >= firstYear &&
           static_cast<int>(month.year()) <= lastYear;
}

bool isInRange(Date date) {
    return date.ok() && date >= firstDate && date <= lastDate;
}

Date dateAt(double seconds, int secondsFromUtc) {
    const double count = std::floor(localSeconds(seconds, secondsFromUtc) / secondsOfDay);
    const double first = sys_days(firstDate).time_since_epoch().count();
    const double last = sys_days(lastDate).time_since_epoch().count();
    return Date(sys_days(days(static_cast<int>(std::clamp(count, first, last)))));
}

double secondsToMidnight(double seconds, int secondsFromUtc) {
    const double local = localSeconds(seconds, secondsFromUtc);
    return (std::floor(local / secondsOfDay) + 1) * secondsOfDay - local;
}

Month monthAfter(Month month, int months) {
    constexpr int first = firstYear * 12, last = lastYear * 12 + 11;
    const int index =
        static_cast<int>(month.year()) * 12 + static_cast<int>(static_cast<unsigned>(month.month())) - 1;
    const int wanted = std::clamp(index + std::clamp(months, -last, last), first, last);
    return year(wanted / 12) / std::chrono::month(static_cast<unsigned>(wanted % 12 + 1));
}

std::optional<Date> dateAfter(Date date, int count) {
    const Date moved(sys_days(date) + days(count));
    return isInRange(moved) ? std::optional(moved) : std::nullopt;
}

Date movedTo(Date date, Month month) {
    const Date moved = month / date.day();
    return moved.ok() ? moved : Date(month / last);
}

int dayOfYear(Date date) {
    return (sys_days(date) - sys_days(date.year() / January / 1)).count() + 1;
}

int daysInYear(int number) {
    return year(number).is_leap() ? 366 : 365;
}

IsoWeek isoWeek(Date date) {
    // A week belongs to the year that its Thursday lies in.
    const int daysFromMonday = (weekday(sys_days(date)) - Monday).count();
    const Date thursday(sys_days(date) + days(3 - daysFromMonday));
    return {static_cast<int>(thursday.year()), (dayOfYear(thursday) - 1) / 7 + 1};
}

int columnOf(Date date, WeekStart start) {
    return (weekday(sys_days(date)) - (start == WeekStart::Monday ? Monday : Sunday)).count();
}

} // namespace calendarplugin
