#include "hosts/phone/program/PluginInstaller.h"

#include "platform/foundation/FileManager.h"

#include <unistd.h>

namespace phone {

namespace {

namespace fs = std::filesystem;

constexpr const char* plugInDirectory = "/Library/Application Support/Vela/Plugins";
constexpr int mostFiles = 10'000;
constexpr std::uintmax_t mostBytes = 256 * 1024 * 1024;

/// Copies a tree, without links and special files; throws std::runtime_error or fs::filesystem_error.
void copyTree(const fs::path& from, const fs::path& to) {
    int files = 0;
    std::uintmax_t bytes = 0;
    fs::create_directories(to);
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const fs::path target = to / fs::relative(entry.path(), from);
        const auto status = entry.symlink_status();
        if (++files > mostFiles)
            throw std::runtime_error("it holds too many files");
        if (fs::is_directory(status)) {
            fs::create_directories(target);
        } else if (fs::is_regular_file(status)) {
            bytes += entry.file_size();
            if (bytes > mostBytes)
                throw std::runtime_error("it is too large");
            fs::copy_file(entry.path(), target);
        }
    }
}

/// The last name of a path, also of one that ends in "/".
std::string nameOf(const fs::path& directory) {
    const fs::path whole = fs::absolute(directory).lexically_normal();
    return (whole.has_filename() ? whole : whole.parent_path()).filename().string();
}

/// Puts what was copied aside in the place of what stands there.
void replace(const fs::path& aside, const fs::path& target, const fs::path& former) {
    if (fs::exists(fs::symlink_status(target)))
        fs::rename(target, former);
    fs::rename(aside, target);
}

} // namespace

std::optional<std::string> installPlugIn(const fs::path& directory) {
    auto& files = foundation::FileManager::shared();
    std::error_code error;
    if (!fs::is_directory(directory, error))
        return directory.string() + " is no directory";
    const std::string name = nameOf(directory);
    const std::string own = "/tmp/install-" + std::to_string(getpid());
    files.createDirectories(plugInDirectory);
    files.createDirectories(own);
    const auto target = files.realPath(std::string(plugInDirectory) + "/" + name);
    const auto aside = files.realPath(own);
    if (name.empty() || !target || !aside)
        return "the plug-in directory cannot be written";
    std::optional<std::string> failure;
    try {
        copyTree(directory, *aside / "new");
        replace(*aside / "new", *target, *aside / "former");
    } catch (const std::exception& reason) {
        failure = directory.string() + " cannot be installed: " + reason.what();
    }
    fs::remove_all(*aside, error);
    return failure;
}

} // namespace phone
