// The device in the user's hand: its model and how it is held.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <optional>
#include <string>

namespace toolkit {

/// The physical orientation. 1 to 4 have the numbers of the interface orientations that match them.
enum class DeviceOrientation : int {
    Unknown = 0,
    Portrait = 1,
    PortraitUpsideDown = 2,
    LandscapeLeft = 3,
    LandscapeRight = 4,
    FaceUp = 5,
    FaceDown = 6,
};

class UIDevice {
public:
    static UIDevice& currentDevice();

    /// "iPhone", "iPad".
    std::string model() const;
    std::string systemVersion() const;
    DeviceOrientation orientation() const { return orientation_; }
    /// The host's sensor speaks.
    void setOrientation(DeviceOrientation orientation) { orientation_ = orientation; }

    /// Key-value coding. "orientation" asks the device to take that orientation; what it makes of it is up to
    /// the host, which finds the wish in forcedOrientation().
    void setValueForKey(const foundation::PropertyList& value, const std::string& key);
    std::optional<int> forcedOrientation() const { return forcedOrientation_; }
    void clearForcedOrientation() { forcedOrientation_.reset(); }

private:
    DeviceOrientation orientation_ = DeviceOrientation::Portrait;
    std::optional<int> forcedOrientation_;
};

} // namespace toolkit
