#include "hosts/device/InstalledFiles.h"

namespace device {

namespace {

std::filesystem::path executableDirectory() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

} // namespace

std::filesystem::path resourceDirectory() {
    std::error_code error;
    const auto installed = executableDirectory() / ".." / "share" / "vela3";
    if (std::filesystem::is_directory(installed / "device", error))
        return installed.lexically_normal();
    return (executableDirectory() / ".." / "resources").lexically_normal();
}

std::filesystem::path builtDeviceDirectory() {
    std::error_code error;
    const auto installed = executableDirectory() / ".." / "lib" / "vela3" / "device";
    const auto built = executableDirectory() / ".." / "device";
    return (std::filesystem::is_directory(installed, error) ? installed : built).lexically_normal();
}

std::filesystem::path installedProgram(const std::string& name) {
    return executableDirectory() / name;
}

std::filesystem::path installedExtension() {
    std::error_code error;
    const auto installed = executableDirectory() / ".." / "lib" / "vela3" / "Vela3.dylib";
    const auto built = executableDirectory() / ".." / "lib" / "Vela3.dylib";
    return (std::filesystem::exists(installed, error) ? installed : built).lexically_normal();
}

} // namespace device
