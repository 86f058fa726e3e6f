#include "vela/startup/Startup.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/ProcessInfo.h"
#include "vela/startup/HookTable.h"
#include "vela/stores/Paths.h"

#include <algorithm>

using foundation::FileManager;
using foundation::ProcessInfo;
using foundation::PropertyList;

namespace vela {

namespace {

constexpr double oldestSystemVersion = 9.0;

void createDataDirectories() {
    auto& files = FileManager::shared();
    // The artworks' directory belongs to the first run alone: once the data directory is there, its owner may
    // have taken artworks away on purpose.
    if (files.directoryExists(paths::data) || !files.createDirectory(paths::data))
        return;
    if (!files.directoryExists(paths::artworks) && files.createDirectory(paths::artworks))
        foundation::log("<Vela3>Yeah!");
}

void seedPreferences() {
    auto& files = FileManager::shared();
    if (files.fileExists(paths::preferences))
        return;
    if (const auto defaults = files.readDictionary(paths::defaults))
        files.writeDictionaryAtomically(paths::preferences, *defaults);
}

bool isHomeScreenProcess() {
    std::string identifier = ProcessInfo::shared().mainBundleIdentifier;
    std::transform(identifier.begin(), identifier.end(), identifier.begin(),
                   [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; });
    return identifier == "com.apple.springboard";
}

} // namespace

void start() {
    createDataDirectories();
    seedPreferences();
    if (PropertyList(ProcessInfo::shared().systemVersion).doubleValue() < oldestSystemVersion)
        return;
    if (isHomeScreenProcess())
        installHooks();
}

} // namespace vela
