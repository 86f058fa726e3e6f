#include "hosts/settings/program/PhoneApplications.h"

#include "hosts/applications/ApplicationCatalogue.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace settings {

std::map<std::string, std::string> PhoneApplications::names() {
    std::map<std::string, std::string> names;
    for (const auto& entry : applications::catalogue())
        names[entry.bundleIdentifier] = entry.name;
    return names;
}

std::shared_ptr<const toolkit::Image> PhoneApplications::icon(const std::string& identifier, double points) {
    const auto* entry = applications::catalogueEntry(identifier);
    return entry ? applications::drawIcon(entry->icon, points, toolkit::UIScreen::mainScreen().scale())
                 : nullptr;
}

} // namespace settings
