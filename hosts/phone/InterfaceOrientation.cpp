#include "hosts/phone/InterfaceOrientation.h"

namespace phone {

std::int64_t chooseInterfaceOrientation(toolkit::DeviceOrientation device, std::int64_t current,
                                        unsigned supported) {
    const auto supports = [&](std::int64_t orientation) {
        return orientation >= 1 && orientation <= 4 && (supported & (1u << orientation)) != 0;
    };
    const auto held = static_cast<std::int64_t>(device);
    if (supports(held))
        return held;
    return supports(current) ? current : 1;
}

} // namespace phone
