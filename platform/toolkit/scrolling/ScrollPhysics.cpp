#include "platform/toolkit/scrolling/ScrollPhysics.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {
/// The rate of decay, per second, that keeps scrollDecelerationRate of the velocity after a millisecond.
const double decay = -1000 * std::log(scrollDecelerationRate);
constexpr double restingVelocity = 0.1; // points a second

/// How much of the finger's way beyond an edge the content follows at first.
constexpr double rubberBandStiffness = 0.55;

/// Angular frequency of the return from beyond an edge, per second: back to a twentieth in half a second.
constexpr double bounceFrequency = 10;
} // namespace

double scrollTravel(double velocity) {
    return velocity / decay;
}

double scrollOffsetAfter(double velocity, double t) {
    return velocity / decay * -std::expm1(-decay * t);
}

double scrollVelocityAfter(double velocity, double t) {
    return velocity * std::exp(-decay * t);
}

double scrollRestTime(double velocity) {
    const double speed = std::abs(velocity);
    return speed <= restingVelocity ? 0 : std::log(speed / restingVelocity) / decay;
}

double scrollTimeToTravel(double velocity, double distance) {
    const double left = 1 - distance * decay / velocity;
    return left > 0 && left <= 1 ? -std::log(left) / decay : INFINITY;
}

double rubberBand(double distance, double extent) {
    if (!(extent > 0))
        return 0;
    const double shown = (1 - 1 / (std::abs(distance) * rubberBandStiffness / extent + 1)) * extent;
    return std::copysign(shown, distance);
}

double rubberBandFinger(double shown, double extent) {
    if (!(extent > 0))
        return 0;
    // What is shown can only come near the extent; stay where the way back is finite.
    const double fraction = std::min(std::abs(shown) / extent, 0.99);
    return std::copysign(fraction / (1 - fraction) * extent / rubberBandStiffness, shown);
}

double bounceBack(double distance, double velocity, double t) {
    return (distance + (velocity + bounceFrequency * distance) * t) * std::exp(-bounceFrequency * t);
}

double bounceVelocity(double distance, double velocity, double t) {
    return (velocity - bounceFrequency * (velocity + bounceFrequency * distance) * t) *
           std::exp(-bounceFrequency * t);
}

double bounceCrossing(double distance, double velocity) {
    const double slope = velocity + bounceFrequency * distance;
    return distance * slope < 0 ? -distance / slope : INFINITY;
}

} // namespace toolkit
