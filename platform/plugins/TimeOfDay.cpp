#include "platform/plugins/TimeOfDay.h"

#include "platform/foundation/RunLoop.h"

#include <glib.h>

#include <algorithm>
#include <cmath>

namespace plugins {

namespace {

constexpr double springMorning = 1458553260; // 2016-03-21 09:41:00 UTC
constexpr std::size_t longestZoneName = 64;
constexpr double latestMoment = 1e11; // seconds, some thousand years

std::function<TimeOfDay()>& source() {
    static auto& function = *new std::function<TimeOfDay()>;
    return function;
}

/// Names of zones are looked up as files; they must not lead elsewhere.
bool isZoneName(const std::string& name) {
    const auto fits = [](unsigned char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' ||
               c == '_' || c == '-' || c == '+';
    };
    return !name.empty() && name.size() <= longestZoneName && name.front() != '/' &&
           std::all_of(name.begin(), name.end(), fits);
}

} // namespace

void setTimeOfDaySource(std::function<TimeOfDay()> function) {
    source() = std::move(function);
}

TimeOfDay timeOfDay() {
    if (source())
        return source()();
    return {springMorning + foundation::RunLoop::main().now(), 0};
}

std::optional<int> secondsFromUtcIn(const std::string& zone, double seconds) {
    if (!isZoneName(zone) || !(std::abs(seconds) < latestMoment))
        return std::nullopt;
    GTimeZone* found = g_time_zone_new_identifier(zone.c_str());
    if (!found)
        return std::nullopt;
    const int interval =
        g_time_zone_find_interval(found, G_TIME_TYPE_UNIVERSAL, static_cast<gint64>(std::floor(seconds)));
    const int offset = interval >= 0 ? g_time_zone_get_offset(found, interval) : 0;
    g_time_zone_unref(found);
    return offset;
}

} // namespace plugins
