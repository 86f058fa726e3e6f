#include "platform/toolkit/windows/UIDevice.h"

#include "platform/foundation/ProcessInfo.h"

#include <algorithm>
#include <limits>

namespace toolkit {

UIDevice& UIDevice::currentDevice() {
    // Never torn down: there is one device, as long as the process runs.
    static auto& device = *new UIDevice;
    return device;
}

std::string UIDevice::model() const {
    return foundation::ProcessInfo::shared().deviceModel;
}

std::string UIDevice::systemVersion() const {
    return foundation::ProcessInfo::shared().systemVersion;
}

void UIDevice::setValueForKey(const foundation::PropertyList& value, const std::string& key) {
    if (key != "orientation")
        return;
    const std::int64_t wish = value.integerValue();
    forcedOrientation_ = static_cast<int>(
        std::clamp<std::int64_t>(wish, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace toolkit
