// What a phone shows and has done, as JSON: the fields are listed in docs/phone-script.md.
//
// Numbers are model values, unrounded; what JSON cannot hold (not-a-number, infinities) becomes null, broken
// UTF-8 is mended when the document is written. Main thread only.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/windows/UIDevice.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace toolkit {
class UIView;
}

namespace script {

/// The part of the state that only the host knows.
struct HostState {
    double time = 0; // seconds since the start
    int interfaceOrientation = 1;
    toolkit::DeviceOrientation deviceOrientation = toolkit::DeviceOrientation::Portrait;
    std::string frontmost; // bundle identifier
    bool locked = false;
    bool displayOn = true;
    toolkit::Rect keyboard;
    int hudCount = 0;                         // volume displays shown since the start
    std::vector<std::string> openedAddresses; // outside the phone, since the start
};

/// Lays out what is marked, and describes everything.
nlohmann::json describeState(const HostState& host,
                             const std::vector<foundation::Notification>& notifications);

/// A view or window with its subviews.
nlohmann::json describeView(const toolkit::UIView& view);

nlohmann::json describeValue(const foundation::PropertyList& value);

/// The document as text, never failing on broken texts within.
std::string writeJson(const nlohmann::json& document);

} // namespace script
