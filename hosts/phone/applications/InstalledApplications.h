// The applications that a phone comes with.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/Application.h"
#include "hosts/phone/music/PhoneMediaPort.h"

namespace phone {

/// In the order of the home screen: the page's first, then the dock's.
std::vector<std::shared_ptr<Application>> makeInstalledApplications(WallClock& clock, PhoneMediaPort& music);

/// Whether an application's icon lies in the dock.
bool liesInDock(const Application& application);

} // namespace phone
