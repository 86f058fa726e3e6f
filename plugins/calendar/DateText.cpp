#include "DateText.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace calendarplugin {

namespace {
constexpr std::array<const char*, 12> monthNames = {"January",   "February", "March",    "April",
                                                    "May",       "June",     "July",     "August",
                                                    "September", "October",  "November", "December"};
constexpr std::array<const char*, 7> weekdayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                     "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 7> heads = {"S", "M", "T", "W", "T", "F", "S"};

const char* nameOf(std::chrono::month month) {
    return monthNames[static_cast<unsigned>(month) - 1];
}

std::optional<int> digits(std::string_view text) {
    int number = 0;
    for (const char character : text) {
        if (character < '0' || character > '9')
            return std::nullopt;
        number = number * 10 + (character - '0');
    }
    return number;
}
} // namespace

std::string monthTitle(Month month) {
    return std::string(nameOf(month.month())) + " " + std::to_string(static_cast<int>(month.year()));
}

std::string shortMonthTitle(Month month) {
    return std::string(nameOf(month.month())).substr(0, 3) + " " +
           std::to_string(static_cast<int>(month.year()));
}

std::string fullDate(Date date) {
    const unsigned weekday = std::chrono::weekday(std::chrono::sys_days(date)).c_encoding();
    return std::string(weekdayNames[weekday]) + ", " + std::to_string(static_cast<unsigned>(date.day())) +
           " " + nameOf(date.month()) + " " + std::to_string(static_cast<int>(date.year()));
}

std::string dayAndWeek(Date date) {
    const int year = static_cast<int>(date.year());
    const IsoWeek week = isoWeek(date);
    std::string text = "Day " + std::to_string(dayOfYear(date)) + " of " + std::to_string(daysInYear(year)) +
                       "  ·  Week " + std::to_string(week.week);
    if (week.year != year)
        text += " of " + std::to_string(week.year);
    return text;
}

std::array<const char*, 7> weekdayHeads(WeekStart start) {
    std::array<const char*, 7> result = heads;
    if (start == WeekStart::Monday)
        std::rotate(result.begin(), result.begin() + 1, result.end());
    return result;
}

std::string isoText(Date date) {
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

std::optional<Date> dateFromIsoText(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = digits(text.substr(0, 4));
    const auto month = digits(text.substr(5, 2));
    const auto day = digits(text.substr(8, 2));
    if (!year || !month || !day)
        return std::nullopt;
    const Date date(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                    std::chrono::day(static_cast<unsigned>(*day)));
    return isInRange(date) ? std::optional(date) : std::nullopt;
}

} // namespace calendarplugin
