// The preferences file of the device's extension, as the settings application writes it.
//
// Stateless: every change reads the file, changes one key and writes the whole file atomically. The last
// writer wins. There must be a device root.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <string>

namespace phone {

class PreferencesFile {
public:
    static constexpr const char* path = "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist";
    static constexpr const char* defaultsPath = "/Library/Application Support/Vela/default.plist";

    /// Sets `key`, or takes it away when `value` is nil. A file that is not there yet begins as the defaults
    /// file; one that cannot be read counts as empty. False when the file cannot be written: it stays as it
    /// was.
    static bool set(const std::string& key, const foundation::PropertyList& value);
};

} // namespace phone
