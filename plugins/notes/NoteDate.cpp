#include "NoteDate.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace notesplugin {

namespace {
constexpr std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::int64_t latestTime = 253402300799; // the end of the year 9999

std::chrono::sys_seconds localTime(std::int64_t seconds, int secondsFromUtc) {
    return std::chrono::sys_seconds(
        std::chrono::seconds(std::clamp<std::int64_t>(seconds, -latestTime, latestTime) + secondsFromUtc));
}

std::string clockTime(std::chrono::sys_seconds time) {
    const auto minutes =
        std::chrono::floor<std::chrono::minutes>(time - std::chrono::floor<std::chrono::days>(time));
    const auto count = minutes.count();
    return std::to_string(count / 60) + (count % 60 < 10 ? ":0" : ":") + std::to_string(count % 60);
}
} // namespace

std::string describeMoment(std::int64_t moment, vela::plugin::WallTime now) {
    const auto then = localTime(moment, now.secondsFromUtc);
    const auto present = localTime(std::llround(std::floor(now.seconds)), now.secondsFromUtc);
    const auto day = std::chrono::floor<std::chrono::days>(then);
    const auto today = std::chrono::floor<std::chrono::days>(present);
    if (day == today)
        return "Today " + clockTime(then);
    if (day == today - std::chrono::days(1))
        return "Yesterday " + clockTime(then);
    const std::chrono::year_month_day date(day);
    const std::string dayAndMonth = std::to_string(static_cast<unsigned>(date.day())) + " " +
                                    months[static_cast<unsigned>(date.month()) - 1];
    if (date.year() == std::chrono::year_month_day(today).year())
        return dayAndMonth;
    return dayAndMonth + " " + std::to_string(static_cast<int>(date.year()));
}

} // namespace notesplugin
