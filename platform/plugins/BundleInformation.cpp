#include "platform/plugins/BundleInformation.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/PropertyListCoding.h"
#include "platform/plugins/ExecutableCheck.h"
#include "sdk/VelaPlugin.h"

namespace plugins {

namespace {

constexpr foundation::PropertyListLimits informationLimits{1024 * 1024, 32, 10'000};
constexpr std::size_t longestIdentifier = 80; // bytes; files are named after it
constexpr std::size_t longestName = 250;      // bytes

std::string withoutSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::optional<foundation::PropertyList> readInformation(const std::string& directory) {
    const auto bytes =
        foundation::FileManager::shared().read(directory + "/Info.plist", informationLimits.maximumBytes);
    auto value = bytes ? foundation::decodePropertyList(*bytes, informationLimits) : std::nullopt;
    return value && value->dictionary() ? std::move(value) : std::nullopt;
}

/// The string under `key`, within the limit and not empty; else an empty one.
std::string stringFor(const foundation::PropertyList& information, const char* key, std::size_t longest) {
    const std::string* text = information[key].string();
    return text && text->size() <= longest ? *text : std::string();
}

} // namespace

std::unique_ptr<BundleInformation> BundleInformation::read(const std::string& devicePath) {
    auto result = std::make_unique<BundleInformation>();
    result->directory = withoutSlashes(devicePath);
    const auto information = readInformation(result->directory);
    if (!information)
        return nullptr;
    const auto& abi = (*information)["VelaPluginABI"];
    if (!abi.isInteger() || abi.integerValue() != VELA_PLUGIN_ABI)
        return nullptr;
    result->identifier = stringFor(*information, "CFBundleIdentifier", longestIdentifier);
    result->principalClass = stringFor(*information, "NSPrincipalClass", longestName);
    const std::string executable = stringFor(*information, "CFBundleExecutable", longestName);
    if (result->identifier.empty() || executable.empty() || executable.front() == '/')
        return nullptr;
    const auto path = foundation::FileManager::shared().realPath(result->directory + "/" + executable);
    if (!path || !isLoadableHere(*path))
        return nullptr;
    result->executable = *path;
    return result;
}

} // namespace plugins
