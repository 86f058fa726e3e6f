#include "ZonedTime.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>

namespace clockplugin {

namespace {

constexpr std::int64_t secondsADay = 86'400;
/// Within the years that have four digits.
constexpr double farthestSeconds = 250'000'000'000.0;

constexpr std::array weekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array months{"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};

std::int64_t dayOf(std::int64_t seconds) {
    return seconds >= 0 ? seconds / secondsADay : -((secondsADay - 1 - seconds) / secondsADay);
}

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string dayText(int difference) {
    if (difference == 0)
        return "Today";
    return difference > 0 ? "Tomorrow" : "Yesterday";
}

std::string differenceText(int seconds) {
    const int minutes = std::abs(seconds) / 60;
    if (minutes == 0)
        return "same time";
    std::string text = (seconds < 0 ? "\u2212" : "+") + std::to_string(minutes / 60);
    if (minutes % 60 != 0)
        text += ":" + twoDigits(minutes % 60);
    return text + " h";
}

} // namespace

ZonedTime ZonedTime::at(double seconds, int offset, int localOffset) {
    if (!(std::abs(seconds) < farthestSeconds))
        seconds = 0;
    const auto utc = static_cast<std::int64_t>(std::floor(seconds));
    ZonedTime time;
    time.day = dayOf(utc + offset);
    const auto ofDay = static_cast<int>(utc + offset - time.day * secondsADay);
    time.hour = ofDay / 3600;
    time.minute = ofDay / 60 % 60;
    time.second = ofDay % 60;
    time.dayDifference = static_cast<int>(time.day - dayOf(utc + localOffset));
    time.offsetDifference = offset - localOffset;
    return time;
}

std::string ZonedTime::clockText(HourStyle style) const {
    if (style == HourStyle::TwentyFour)
        return twoDigits(hour) + ":" + twoDigits(minute);
    return std::to_string((hour + 11) % 12 + 1) + ":" + twoDigits(minute);
}

std::string ZonedTime::halfOfDay(HourStyle style) const {
    if (style == HourStyle::TwentyFour)
        return "";
    return hour < 12 ? "AM" : "PM";
}

std::string ZonedTime::relation() const {
    return dayText(dayDifference) + ", " + differenceText(offsetDifference);
}

std::string ZonedTime::date() const {
    const std::chrono::sys_days there{std::chrono::days{day}};
    const std::chrono::year_month_day date{there};
    return std::string(weekdays[std::chrono::weekday{there}.c_encoding()]) + ", " +
           std::to_string(static_cast<unsigned>(date.day())) + " " +
           months[static_cast<unsigned>(date.month()) - 1];
}

} // namespace clockplugin
