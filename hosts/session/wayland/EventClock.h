// Turns the compositor's event times into the run loop's.
//
// The protocol leaves the clock behind its milliseconds open. Where they fit the run loop's clock they are
// taken as they are, which keeps velocities exact however late an event is read; else each gesture is counted
// from the moment at which its first event came.
#pragma once

#include <cstdint>

namespace session {

class EventClock {
public:
    /// The time of an event in seconds of the run loop, whose time is `now`. `isFirst` begins a gesture.
    double timeOf(std::uint32_t milliseconds, double now, bool isFirst);

private:
    double offset_ = 0; // seconds, of the gesture
    std::uint32_t first_ = 0;
};

} // namespace session
