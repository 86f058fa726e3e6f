// The availability cycle: one pass, twice a second, that applies the settings and the situation to the
// windows.
//
// The settings process sends no message, so the pass compares what the preferences say with what the last
// pass applied and acts on differences; only the grabbers' activation is set every time. Main thread only.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/runtime/Object.h"

#include <cstdint>
#include <string>

namespace vela::availability {

/// What the last pass applied. The first values are no settings, so that the first pass applies them all.
struct Applied {
    foundation::PropertyList grabberHeight = "";
    float sensibility = 0;
    std::int64_t orientation = -10;
    float rightPortrait = 0;
    float rightLandscape = 0;
    float leftPortrait = 0;
    float leftLandscape = 0;
    /// Bundle identifier of the application that was in front when the display turned off.
    std::string offID;
};
Applied& applied();

inline constexpr double interval = 0.5; // seconds

void velaCycler(runtime::Object& self);
std::string getOffID(runtime::Object& self);

} // namespace vela::availability
