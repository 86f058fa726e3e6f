// How the device is held, as its accelerometer's service tells.
#pragma once

#include "hosts/session/bus/BusObject.h"

#include <cstdint>
#include <utility>

namespace session {

class OrientationSensor {
public:
    OrientationSensor(bus::Bus& system, std::function<void()> changed);

    /// An interface orientation, 1 to 4; 0 where nothing is known.
    std::int64_t orientation() const;

private:
    void claim();

    bool wasThere_ = false;
    BusObject sensor_;
};

/// The interface orientation of an output: its shape decides between upright and sideways; which of the two
/// it is the sensor says, and without one the output's own turn (the compositor's number for it).
/// `builtUpright` says that the output is higher than wide when it is not turned.
std::int64_t orientationOfOutput(bool isWide, int transform, bool builtUpright, std::int64_t sensed);

} // namespace session
