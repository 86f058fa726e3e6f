// What a clock on the wall of some place shows, and how it differs from the clocks here.
#pragma once

#include <cstdint>
#include <string>

namespace clockplugin {

enum class HourStyle { TwentyFour, Twelve };

struct ZonedTime {
    int hour = 0; // 0 to 23
    int minute = 0;
    int second = 0;
    std::int64_t day = 0;     // days since 1970-01-01, there
    int dayDifference = 0;    // −1: there it is still yesterday
    int offsetDifference = 0; // seconds that it is ahead of here

    /// At `seconds` since 1970 UTC, in a place `offset` seconds ahead of UTC, seen from one `localOffset`
    /// ahead.
    static ZonedTime at(double seconds, int offset, int localOffset);

    bool isNight() const { return hour < 6 || hour >= 18; }
    /// "14:05" or "2:05".
    std::string clockText(HourStyle style) const;
    /// "AM" or "PM"; empty in the style that needs none.
    std::string halfOfDay(HourStyle style) const;
    /// "Tomorrow, +7:30 h", "Today, same time".
    std::string relation() const;
    /// "Tuesday, 4 June"
    std::string date() const;
};

} // namespace clockplugin
