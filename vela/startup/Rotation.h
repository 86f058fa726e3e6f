// Lays the panels and grabbers out, closed, for an interface orientation.
#pragma once

#include "platform/runtime/Object.h"

#include <cstdint>

namespace vela::rotation {

/// `isSpring`: the orientation is the home screen's own, no application being in front. A tablet is laid out
/// every time; a phone the first time only, and later just asked to take the orientation.
void velaWillRotate(runtime::Object& self, std::int64_t orientation, bool isSpring);

/// Forgets that a phone has been laid out; for tests.
void resetDone();

} // namespace vela::rotation
