#include "hosts/phone/applications/InstalledApplications.h"

#include "hosts/phone/applications/CalendarApplication.h"
#include "hosts/phone/applications/ClockApplication.h"
#include "hosts/phone/applications/MusicApplication.h"
#include "hosts/phone/applications/NotesApplication.h"
#include "hosts/phone/applications/PhotosApplication.h"
#include "hosts/phone/applications/RadioApplication.h"
#include "hosts/phone/applications/SettingsApplication.h"

namespace phone {

std::vector<std::shared_ptr<Application>> makeInstalledApplications(WallClock& clock, PhoneMediaPort& music) {
    return {std::make_shared<CalendarApplication>(clock), std::make_shared<ClockApplication>(clock),
            std::make_shared<RadioApplication>(music),    std::make_shared<MusicApplication>(music),
            std::make_shared<PhotosApplication>(),        std::make_shared<NotesApplication>(clock),
            std::make_shared<SettingsApplication>()};
}

bool liesInDock(const Application& application) {
    using applications::IconKind;
    const IconKind icon = application.description().entry.icon;
    return icon != IconKind::Clock && icon != IconKind::Calendar && icon != IconKind::Radio;
}

} // namespace phone
