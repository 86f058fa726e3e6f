// What a bundle's "Info.plist" says of it, checked: all that is known of a plug-in before any of its code is
// loaded.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace plugins {

struct BundleInformation {
    std::string identifier;
    std::string directory;            // device path, without a slash at its end
    std::filesystem::path executable; // on the real disk, a whole program library for this machine
    std::string principalClass;       // may be empty

    /// Null for a bundle that cannot be loaded: its property list is missing, malformed or huge, the number
    /// of the contract is missing or another one, or the executable is missing, lies outside of the bundle or
    /// is none for this machine.
    static std::unique_ptr<BundleInformation> read(const std::string& devicePath);
};

} // namespace plugins
