#include "hosts/settings/program/ApplicationList.h"

#include "hosts/settings/program/DesktopApplications.h"
#include "hosts/settings/program/PhoneApplications.h"

namespace settings {

std::unique_ptr<ApplicationList> ApplicationList::make(Options::Applications which, ThemeIcon themeIcon) {
    if (which == Options::Applications::Desktop)
        return std::make_unique<DesktopApplications>(std::move(themeIcon));
    return std::make_unique<PhoneApplications>();
}

} // namespace settings
