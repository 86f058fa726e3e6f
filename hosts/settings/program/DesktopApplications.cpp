#include "hosts/settings/program/DesktopApplications.h"

#include "hosts/applications/ApplicationCatalogue.h"
#include "platform/foundation/FileManager.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace settings {

namespace {

/// By this name the theme has what stands for a program without an icon of its own.
constexpr const char* genericIcon = "application-x-executable";
/// Holds every setting that is no application's.
constexpr const char* defaultsPath = "/Library/Application Support/Vela/default.plist";

} // namespace

std::map<std::string, std::string> DesktopApplications::names() {
    listed_.clear();
    const auto settings = foundation::FileManager::shared().readDictionary(defaultsPath);
    std::map<std::string, std::string> names;
    for (auto& entry : entries_.listed()) {
        // Its switch would be that of the setting of the same name.
        if (settings && settings->contains(entry.identifier))
            continue;
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
