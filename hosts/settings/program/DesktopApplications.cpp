#include "hosts/settings/program/DesktopApplications.h"

#include "hosts/applications/ApplicationCatalogue.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace settings {

namespace {

/// By this name the theme has what stands for a program without an icon of its own.
constexpr const char* genericIcon = "application-x-executable";

} // namespace

std::map<std::string, std::string> DesktopApplications::names() {
    listed_.clear();
    std::map<std::string, std::string> names;
    for (auto& entry : entries_.listed()) {
        names[entry.identifier] = entry.name;
        listed_[entry.identifier] = std::move(entry);
    }
    return names;
}

std::shared_ptr<const toolkit::Image> DesktopApplications::icon(const std::string& identifier,
                                                                double points) {
    if (listed_.empty())
        names();
    const auto found = listed_.find(identifier);
    const std::string icon = found == listed_.end() ? "" : found->second.icon;
    // Pages tell the generic icon by that of a service without a face, which no desktop has.
    const bool isService = identifier == applications::webViewService.bundleIdentifier;
    if (isService || (found != listed_.end() && (icon.empty() || icon == genericIcon)))
        return applications::drawIcon(applications::IconKind::Generic, points,
                                      toolkit::UIScreen::mainScreen().scale());
    return themeIcon_ && !icon.empty() ? themeIcon_(icon, points) : nullptr;
}

} // namespace settings
