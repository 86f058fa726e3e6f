// Where the program's own files lie: in an installation beside the executable, else in the source and build
// trees that it was made from.
#pragma once

#include <filesystem>
#include <string>

namespace device {

/// The directory of resources ("device" mirrors the device's disk, "fonts" holds the system font). It may be
/// missing.
std::filesystem::path resourceDirectory();

/// What is built and belongs on every device, the phone's own plug-ins: mirrors the device's disk as well. It
/// may be missing.
std::filesystem::path builtDeviceDirectory();

/// Another of the project's programs, which lies beside this one. It may be missing.
std::filesystem::path installedProgram(const std::string& name);

/// The installed extension, Vela3.dylib. It may be missing.
std::filesystem::path installedExtension();

} // namespace device
