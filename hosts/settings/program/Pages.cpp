#include "hosts/settings/program/Pages.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/PreferenceBundle.h"

#include <algorithm>

namespace settings {

namespace {
constexpr const char* bundleDirectory = "/Library/PreferenceBundles";
} // namespace

std::vector<std::shared_ptr<preferences::PSViewController>> makeRootPages() {
    auto names = foundation::FileManager::shared()
                     .contentsOfDirectory(bundleDirectory)
                     .value_or(std::vector<std::string>());
    std::sort(names.begin(), names.end());
    std::vector<std::shared_ptr<preferences::PSViewController>> pages;
    for (const std::string& name : names)
        if (const auto bundle =
                preferences::PreferenceBundle::read(std::string(bundleDirectory) + "/" + name))
            if (auto page = bundle->makeRootController())
                pages.push_back(std::move(page));
    return pages;
}

} // namespace settings
