#include "hosts/device/ResourceCopy.h"

#include "hosts/device/ProgramError.h"
#include "platform/foundation/FileManager.h"

#include <fcntl.h>
#include <unistd.h>

namespace device {

namespace {

namespace fs = std::filesystem;

constexpr const char* pluginDirectory = "/Library/Application Support/Vela/Plugins";

[[noreturn]] void fail(const std::string& name) {
    throw ProgramError("the device root cannot be filled: " + name + " cannot be added");
}

/// Whether anything stands at a device path. A symbolic link is nothing to the device, but it is not ours to
/// replace.
bool stands(const std::string& devicePath) {
    const auto& files = foundation::FileManager::shared();
    return files.fileExists(devicePath) || !files.realPath(devicePath);
}

void syncFileSystem(const fs::path& path) {
    const int directory = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return;
    syncfs(directory);
    close(directory);
}

} // namespace

void ResourceCopy::addMissing(Durability durability) {
    const auto aside =
        foundation::FileManager::shared().realPath("/tmp/resources-" + std::to_string(getpid()));
    if (!aside)
        fail("/tmp");
    asideDirectory_ = *aside;
    std::error_code error;
    fs::remove_all(asideDirectory_, error);
    collect(source_, "");
    if (additions_.empty())
        return;
    if (durability == Durability::Synced)
        syncFileSystem(asideDirectory_);
    moveIntoPlace();
    fs::remove_all(asideDirectory_, error);
}

void ResourceCopy::collect(const fs::path& source, const std::string& devicePath) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(source, error)) {
        const std::string target = devicePath + "/" + entry.path().filename().string();
        const bool wholeFolder = entry.is_directory() && devicePath == pluginDirectory;
        if (entry.is_regular_file() || wholeFolder)
            copyAside(entry.path(), target);
        else if (entry.is_directory())
            makeDirectory(entry.path(), target);
    }
    if (error)
        fail(source.string());
}

void ResourceCopy::copyAside(const fs::path& source, const std::string& devicePath) {
    if (stands(devicePath))
        return;
    const auto target = foundation::FileManager::shared().realPath(devicePath);
    const fs::path aside = asideDirectory_ / std::to_string(additions_.size());
    std::error_code error;
    fs::create_directories(asideDirectory_, error);
    if (!error)
        fs::copy(source, aside, fs::copy_options::recursive, error);
    if (error || !target)
        fail(devicePath);
    additions_.push_back({aside, *target});
}

void ResourceCopy::makeDirectory(const fs::path& source, const std::string& devicePath) {
    if (foundation::FileManager::shared().createDirectories(devicePath))
        collect(source, devicePath);
    else if (!stands(devicePath))
        fail(devicePath);
}

void ResourceCopy::moveIntoPlace() const {
    for (const Addition& addition : additions_) {
        std::error_code error;
        fs::rename(addition.aside, addition.target, error);
        if (error)
            fail(addition.target.string());
    }
}

} // namespace device
