// Moments as a person names them, seen from now: "Today 14:05", "Yesterday 9:30", "3 May", "3 May 2024".
#pragma once

#include "VelaPlugin.h"

#include <cstdint>
#include <string>

namespace notesplugin {

/// `moment` in seconds since 1970, shown in the zone of `now`.
std::string describeMoment(std::int64_t moment, vela::plugin::WallTime now);

} // namespace notesplugin
