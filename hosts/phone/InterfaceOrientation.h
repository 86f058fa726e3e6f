// Which way up the interface stands, for how the device is held and what the screen in front can do.
#pragma once

#include "platform/toolkit/windows/UIDevice.h"

#include <cstdint>

namespace phone {

/// The interface orientation (1 to 4) to take: the device's, where `supported` (a mask) has it, else
/// `current` where that is supported, else portrait.
std::int64_t chooseInterfaceOrientation(toolkit::DeviceOrientation device, std::int64_t current,
                                        unsigned supported);

} // namespace phone
