#include "hosts/phone/program/PreferencesFile.h"

#include "platform/foundation/FileManager.h"

namespace phone {

bool PreferencesFile::set(const std::string& key, const foundation::PropertyList& value) {
    auto& files = foundation::FileManager::shared();
    // The settings application, too, seeds a missing file first: one that held this single key alone would
    // leave everything else switched off for good.
    const char* source = files.fileExists(path) ? path : defaultsPath;
    auto preferences = files.readDictionary(source).value_or(foundation::PropertyList::Dictionary());
    if (value.isNil())
        preferences.erase(key);
    else
        preferences.insert_or_assign(key, value);
    return files.writeDictionaryAtomically(path, preferences);
}

} // namespace phone
