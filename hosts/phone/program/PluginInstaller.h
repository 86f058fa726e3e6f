// Installs plug-ins: copies their bundles into the device's plug-in directory.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace phone {

/// Copies the bundle `directory` of this machine under its own name, replacing one of that name. Only
/// directories and regular files are taken along, at most 10,000 of them and 256 MB. Answers why that failed;
/// the device is then as it was. There must be a device root.
std::optional<std::string> installPlugIn(const std::filesystem::path& directory);

} // namespace phone
