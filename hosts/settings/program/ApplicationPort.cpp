#include "hosts/settings/program/ApplicationPort.h"

#include "hosts/applications/ApplicationCatalogue.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace settings {

void ApplicationPort::dismiss(toolkit::UIViewController&, bool, std::function<void()> completion) {
    if (completion)
        completion();
}

std::map<std::string, std::string> ApplicationPort::applications() {
    std::map<std::string, std::string> names;
    for (const auto& entry : ::applications::catalogue())
        names[entry.bundleIdentifier] = entry.name;
    return names;
}

std::shared_ptr<const toolkit::Image> ApplicationPort::applicationIcon(const std::string& bundleIdentifier,
                                                                       double points) {
    const auto* entry = ::applications::catalogueEntry(bundleIdentifier);
    return entry ? ::applications::drawIcon(entry->icon, points, toolkit::UIScreen::mainScreen().scale())
                 : nullptr;
}

} // namespace settings
