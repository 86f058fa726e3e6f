// The plug-in registry of VelaSettingsManager.
#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::FileManager;
using foundation::PropertyList;

namespace vela {

namespace {

constexpr std::size_t largestInformationFile = 1024 * 1024; // bytes

/// Names of the plug-in folder's entries in the file system's order; nothing, and a log line, when it cannot
/// be listed.
std::optional<std::vector<std::string>> listPlugIns() {
    auto names = FileManager::shared().contentsOfDirectory(paths::plugIns);
    if (!names)
        foundation::log("Error while loading vela bundles");
    return names;
}

std::string bundlePath(const std::string& name) {
    return std::string(paths::plugIns) + "/" + name;
}

/// What a bundle says of itself; nothing for an entry that says nothing that can be read.
std::optional<PropertyList::Dictionary> information(const std::string& name) {
    return FileManager::shared().readDictionary(bundlePath(name) + "/Info.plist", largestInformationFile);
}

const PropertyList& valueIn(const PropertyList::Dictionary& dictionary, const char* key) {
    static const PropertyList nil;
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? nil : found->second;
}

} // namespace

std::optional<VelaSettingsManager::VelaApps> VelaSettingsManager::getVelaApps() const {
    const auto names = listPlugIns();
    if (!names)
        return std::nullopt;
    VelaApps apps;
    for (const std::string& name : *names) {
        auto info = information(name);
        if (!info || valueIn(*info, "hidden").boolValue())
            continue;
        const std::string* found = valueIn(*info, "CFBundleIdentifier").string();
        if (!found || found->empty())
            continue;
        const std::string identifier = *found;
        apps[identifier] = std::move(*info);
    }
    return apps;
}

std::optional<std::string>
VelaSettingsManager::getBundlePathByIdentifier(const std::string& identifier) const {
    const auto names = listPlugIns();
    if (!names)
        return std::nullopt;
    for (const std::string& name : *names) {
        const auto info = information(name);
        if (info && valueIn(*info, "CFBundleIdentifier").equals(identifier))
            return bundlePath(name) + "/";
    }
    return std::nullopt;
}

} // namespace vela
