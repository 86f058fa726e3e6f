// The time of day that plug-ins are told, and the offsets of the world's time zones. Main thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace plugins {

struct TimeOfDay {
    double seconds = 0;     // since 1970-01-01 00:00 UTC
    int secondsFromUtc = 0; // of the device's zone, positive east of Greenwich
};

/// Where a host's time of day comes from. Without one it is a fixed morning from which the main run loop goes
/// on.
void setTimeOfDaySource(std::function<TimeOfDay()> source);
TimeOfDay timeOfDay();

/// The offset of a zone ("Europe/Lisbon") at a moment, seconds since 1970; nothing for one that is not known.
std::optional<int> secondsFromUtcIn(const std::string& zone, double seconds);

} // namespace plugins
