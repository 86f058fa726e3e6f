#include "hosts/device/DeviceRoot.h"

#include "hosts/device/ProgramError.h"
#include "hosts/device/ResourceCopy.h"
#include "platform/foundation/FileManager.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace device {

namespace {

namespace fs = std::filesystem;

/// What a device has before anything is installed on it.
constexpr std::array standardDirectories{"/var/mobile/Library/Preferences", "/var/mobile/Documents", "/tmp",
                                         "/Library/Application Support/Vela/Plugins"};

constexpr const char* temporaryNamePattern = "vela-phone-XXXXXX";

/// Whether a directory was made by freshTemporaryRoot(): nothing else is ever removed.
bool isTemporaryRoot(const fs::path& path) {
    std::error_code error;
    const std::string name = path.filename(), pattern = temporaryNamePattern;
    const std::size_t fixed = pattern.find('X');
    return path.parent_path() == fs::temp_directory_path(error) && name.size() == pattern.size() &&
           name.compare(0, fixed, pattern, 0, fixed) == 0 &&
           fs::is_directory(fs::symlink_status(path, error));
}

fs::path freshTemporaryRoot() {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / temporaryNamePattern).string();
    if (error || !mkdtemp(name.data()))
        throw ProgramError("no temporary device root can be made: set TMPDIR or give --root DIR");
    return name;
}

/// Whether files can be made in a directory of the device. Permissions alone do not tell: the disk may be
/// read-only.
bool isWritable(const std::string& devicePath) {
    const auto probe =
        foundation::FileManager::shared().realPath(devicePath + "/.probe-" + std::to_string(getpid()));
    if (!probe)
        return false;
    const int file = open(probe->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    close(file);
    return unlink(probe->c_str()) == 0;
}

} // namespace

fs::path DeviceRoot::userRoot() {
    // The XDG rules: a relative XDG_DATA_HOME is to be ignored.
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && fs::path(data).is_absolute())
        return fs::path(data) / "vela3" / "device";
    if (const char* home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".local" / "share" / "vela3" / "device";
    throw ProgramError("neither XDG_DATA_HOME nor HOME is set: give --root DIR");
}

DeviceRoot::DeviceRoot(const std::optional<fs::path>& path, const std::optional<fs::path>& former)
    : path_(path                                 ? *path
            : former && isTemporaryRoot(*former) ? *former
                                                 : freshTemporaryRoot()),
      temporary_(!path) {
    auto& files = foundation::FileManager::shared();
    if (!files.setDeviceRoot(path_))
        throw ProgramError("the device root " + path_.string() + " cannot be made");
    for (const char* directory : standardDirectories)
        if (!files.createDirectories(directory) || !isWritable(directory))
            throw ProgramError("the device root " + path_.string() + " cannot be written");
}

DeviceRoot::~DeviceRoot() {
    std::error_code error;
    if (temporary_)
        fs::remove_all(path_, error);
}

void DeviceRoot::fill(const fs::path& device) const {
    std::error_code error;
    if (!fs::is_directory(device, error)) {
        std::fprintf(stderr, "vela: there is nothing to bring to the device in %s\n", device.c_str());
        return;
    }
    // A disk that goes with the process need not outlive a loss of power.
    ResourceCopy(device).addMissing(temporary_ ? ResourceCopy::Durability::None
                                               : ResourceCopy::Durability::Synced);
}

} // namespace device
