#include "Units.h"

#include "Fields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace systemplugin {

namespace {
constexpr double longestTime = 1e12; // seconds

std::string joined(std::int64_t large, const char* largeUnit, std::int64_t small, const char* smallUnit) {
    std::string text = std::to_string(large) + " " + largeUnit;
    if (small > 0)
        text += " " + std::to_string(small) + " " + smallUnit;
    return text;
}
} // namespace

std::string formatBytes(double bytes) {
    constexpr std::array<const char*, 6> units = {"B", "kB", "MB", "GB", "TB", "PB"};
    if (!(bytes > 0))
        return "0 B";
    std::size_t unit = 0;
    // 999.5 would be rounded to 1000.
    while (bytes >= 999.5 && unit + 1 < units.size()) {
        bytes /= 1000;
        ++unit;
    }
    char text[64];
    const bool oneDecimal = unit > 0 && bytes < 9.95;
    std::snprintf(text, sizeof text, oneDecimal ? "%.1f %s" : "%.0f %s", std::min(bytes, 1e15), units[unit]);
    return text;
}

std::string formatRate(double bytesPerSecond) {
    return formatBytes(bytesPerSecond) + "/s";
}

std::string formatPercent(double part) {
    const double bounded = part > 0 ? std::min(part, 1.0) : 0;
    return std::to_string(std::lround(bounded * 100)) + " %";
}

std::string formatDuration(double seconds) {
    const auto whole = static_cast<std::int64_t>(seconds > 0 ? std::min(seconds, longestTime) : 0);
    const std::int64_t minutes = whole / 60, hours = minutes / 60, days = hours / 24;
    if (days > 0)
        return joined(days, "d", hours % 24, "h");
    if (hours > 0)
        return joined(hours, "h", minutes % 60, "min");
    if (minutes > 0)
        return joined(minutes, "min", whole % 60, "s");
    return std::to_string(whole) + " s";
}

std::optional<double> parseUptime(std::string_view text) {
    const auto words = wordsOf(text.substr(0, text.find('\n')));
    if (words.empty())
        return std::nullopt;
    const std::size_t point = std::min(words[0].find('.'), words[0].size());
    const auto whole = numberFrom(words[0].substr(0, point));
    if (!whole || static_cast<double>(*whole) > longestTime)
        return std::nullopt;
    return static_cast<double>(*whole);
}

} // namespace systemplugin
