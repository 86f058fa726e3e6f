#include "hosts/session/wayland/EventClock.h"

#include <cmath>

namespace session {

namespace {

constexpr double latest = 0.005; // seconds ahead of the run loop that rounding may make
constexpr double oldest = 1.0;   // seconds that an event may have waited

} // namespace

double EventClock::timeOf(std::uint32_t milliseconds, double now, bool isFirst) {
    if (isFirst) {
        first_ = milliseconds;
        // Both count modulo 2³² milliseconds, about fifty days.
        const auto present = static_cast<std::uint32_t>(static_cast<std::uint64_t>(now * 1000));
        const double age = static_cast<std::int32_t>(present - milliseconds) / 1000.0;
        offset_ = age <= oldest && age >= -latest ? now - age : now;
    }
    return offset_ + static_cast<std::int32_t>(milliseconds - first_) / 1000.0;
}

} // namespace session
