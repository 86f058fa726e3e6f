// A preference bundle: a directory of the device whose "Info.plist" names the class of its root page
// ("NSPrincipalClass") and what the settings application calls it ("CFBundleDisplayName").
//
// The classes themselves come from a library that the host has loaded.
#pragma once

#include "platform/preferences/PSViewController.h"

#include <memory>
#include <optional>
#include <string>

namespace preferences {

struct PreferenceBundle {
    std::string displayName;
    std::string principalClass;

    /// Nothing when the directory at this device path holds no such bundle.
    static std::optional<PreferenceBundle> read(const std::string& devicePath);

    /// A new root page, titled with the display name; null while no loaded library has its class.
    std::shared_ptr<PSViewController> makeRootController() const;
};

} // namespace preferences
