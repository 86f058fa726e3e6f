#include "hosts/session/homescreen/OrientationSensor.h"

#include <array>

namespace session {

namespace {

constexpr std::array<std::pair<const char*, std::int64_t>, 4> names{
    {{"normal", 1}, {"bottom-up", 2}, {"right-up", 3}, {"left-up", 4}}};

constexpr const char* orientationProperty = "AccelerometerOrientation";

constexpr bool isSideways(std::int64_t orientation) {
    return orientation == 3 || orientation == 4;
}

} // namespace

OrientationSensor::OrientationSensor(bus::Bus& system, std::function<void()> changed)
    : sensor_(system, {"net.hadess.SensorProxy", "/net/hadess/SensorProxy", "net.hadess.SensorProxy"},
              {[this, changed] {
                  if (std::exchange(wasThere_, sensor_.isThere()) != sensor_.isThere() && wasThere_)
                      claim();
                  changed();
              }}) {}

/// The service measures nothing before it is asked to, and tells of changes only those who have asked.
void OrientationSensor::claim() {
    sensor_.call("ClaimAccelerometer", nullptr,
                 [this](const std::string&) { sensor_.readAgain(orientationProperty); });
}

std::int64_t OrientationSensor::orientation() const {
    const std::string name = sensor_.stringProperty(orientationProperty, "");
    for (const auto& [known, orientation] : names)
        if (name == known)
            return orientation;
    return 0;
}

std::int64_t orientationOfOutput(bool isWide, int transform, bool builtUpright, std::int64_t sensed) {
    if (sensed != 0 && isSideways(sensed) == isWide)
        return sensed;
    const int quarterTurns = transform & 3;
    if (isWide)
        return (builtUpright ? quarterTurns == 1 : quarterTurns == 2) ? 4 : 3;
    return (builtUpright ? quarterTurns == 2 : quarterTurns == 3) ? 2 : 1;
}

} // namespace session
