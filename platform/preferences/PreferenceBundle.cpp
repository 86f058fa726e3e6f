#include "platform/preferences/PreferenceBundle.h"

#include "platform/foundation/FileManager.h"
#include "platform/runtime/Creation.h"

using foundation::PropertyList;

namespace preferences {

namespace {

constexpr std::size_t largestInformationFile = 1024 * 1024; // bytes

std::string textIn(const PropertyList& information, const char* key) {
    const std::string* text = information[key].string();
    return text ? *text : std::string();
}

} // namespace

std::optional<PreferenceBundle> PreferenceBundle::read(const std::string& devicePath) {
    auto dictionary =
        foundation::FileManager::shared().readDictionary(devicePath + "/Info.plist", largestInformationFile);
    if (!dictionary)
        return std::nullopt;
    const PropertyList information(std::move(*dictionary));
    return PreferenceBundle{textIn(information, "CFBundleDisplayName"),
                            textIn(information, "NSPrincipalClass")};
}

std::shared_ptr<PSViewController> PreferenceBundle::makeRootController() const {
    auto controller = runtime::createInstanceOf<PSViewController>(principalClass);
    if (controller)
        controller->setTitle(displayName);
    return controller;
}

} // namespace preferences
