#include "hosts/phone/program/DeviceRoot.h"

#include "hosts/phone/program/ProgramError.h"
#include "platform/foundation/FileManager.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace phone {

namespace {

namespace fs = std::filesystem;

constexpr const char* pluginDirectory = "/Library/Application Support/Vela/Plugins";
/// What a device has before anything is installed on it.
constexpr std::array standardDirectories{"/var/mobile/Library/Preferences", "/var/mobile/Documents", "/tmp"};

fs::path freshTemporaryRoot() {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "vela-phone-XXXXXX").string();
    if (error || !mkdtemp(name.data()))
        throw ProgramError("no temporary device root can be made: set TMPDIR or give --root DIR");
    return name;
}

/// Whether files can be made in a directory of the device. Permissions alone do not tell: the disk may be
/// full or read-only.
bool isWritable(const std::string& devicePath) {
    auto& files = foundation::FileManager::shared();
    const std::string probe = devicePath + "/.probe-" + std::to_string(getpid());
    constexpr std::array<std::uint8_t, 1> byte{0};
    return files.writeAtomically(probe, byte) && files.removeFile(probe);
}

/// Copies files of the project to the device, by way of FileManager so that nothing leaves the root.
class ResourceCopy {
public:
    /// Adds what is missing below `devicePath`. Plug-in folders are added whole or not at all.
    void addMissing(const fs::path& source, const std::string& devicePath) {
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(source, error)) {
            const std::string target = devicePath + "/" + entry.path().filename().string();
            if (entry.is_regular_file(error))
                addFile(entry.path(), target);
            else if (entry.is_directory(error) && devicePath == pluginDirectory)
                addFolder(entry.path(), target);
            else if (entry.is_directory(error))
                addDirectory(entry.path(), target);
        }
        if (error)
            fail(source.string());
    }

private:
    [[noreturn]] static void fail(const std::string& name) {
        throw ProgramError("the device root cannot be filled: " + name);
    }

    /// Whether anything stands at a device path. A symbolic link is nothing to the device, but it is not ours
    /// to replace.
    bool stands(const std::string& target) const {
        return files_.fileExists(target) || !files_.realPath(target);
    }

    void addDirectory(const fs::path& source, const std::string& target) {
        if (files_.createDirectories(target))
            addMissing(source, target);
        else if (!stands(target))
            fail(target);
    }

    void addFile(const fs::path& source, const std::string& target) {
        if (stands(target))
            return;
        std::ifstream stream(source, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
        if (!stream.is_open() || stream.bad())
            fail(source.string());
        const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
        if (!files_.writeAtomically(target, {data, bytes.size()}))
            fail(target);
    }

    /// Filled aside and renamed, so that a kill in between leaves no half plug-in.
    void addFolder(const fs::path& source, const std::string& target) {
        if (stands(target))
            return;
        const std::string aside = "/tmp/" + source.filename().string() + "." + std::to_string(getpid());
        addDirectory(source, aside);
        const auto from = files_.realPath(aside);
        const auto to = files_.realPath(target);
        std::error_code error;
        if (from && to)
            fs::rename(*from, *to, error);
        if (!from || !to || error)
            fail(target);
    }

    foundation::FileManager& files_ = foundation::FileManager::shared();
};

} // namespace

fs::path DeviceRoot::userRoot() {
    // The XDG rules: a relative XDG_DATA_HOME is to be ignored.
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && fs::path(data).is_absolute())
        return fs::path(data) / "vela3" / "device";
    if (const char* home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".local" / "share" / "vela3" / "device";
    throw ProgramError("neither XDG_DATA_HOME nor HOME is set: give --root DIR");
}

DeviceRoot::DeviceRoot(const std::optional<fs::path>& path)
    : path_(path ? *path : freshTemporaryRoot()), temporary_(!path) {
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

void DeviceRoot::fill(const fs::path& resources) const {
    std::error_code error;
    const fs::path device = resources / "device";
    if (fs::is_directory(device, error))
        ResourceCopy().addMissing(device, "");
    else
        std::fprintf(stderr, "vela-phone: there are no resources in %s: the device stays empty\n",
                     device.c_str());
}

} // namespace phone
