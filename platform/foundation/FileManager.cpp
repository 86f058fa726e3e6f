#include "platform/foundation/FileManager.h"

#include "platform/foundation/DecodedFiles.h"
#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/PropertyListCoding.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace foundation {

namespace {

/// Names of files that are still being written. What a killed process leaves behind is never listed.
constexpr std::string_view temporaryPrefix = ".vela-writing-";

/// The names on the way from the root; nothing when the path could lead out of it.
std::optional<std::vector<std::string>> componentsOf(std::string_view path) {
    if (path.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::vector<std::string> components;
    while (!path.empty()) {
        const std::string_view name = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), name.size() + 1));
        if (name == "..")
            return std::nullopt;
        if (!name.empty() && name != ".")
            components.emplace_back(name);
    }
    return components;
}

FileDescriptor openRoot(const std::filesystem::path& root) {
    return FileDescriptor(open(root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

/// A directory directly inside another, never through a symbolic link.
FileDescriptor openDirectory(const FileDescriptor& parent, const std::string& name) {
    return FileDescriptor(
        openat(parent.number(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// What a path leads to: the directory that holds it, and its name there ("." for the root itself).
struct Place {
    FileDescriptor directory;
    std::string name;
    const char* entry() const { return name.c_str(); }
};

std::optional<Place> placeOf(const std::filesystem::path& root, const std::string& devicePath) {
    auto components = componentsOf(devicePath);
    if (!components || root.empty())
        return std::nullopt;
    Place place{openRoot(root), "."};
    if (!components->empty()) {
        place.name = std::move(components->back());
        components->pop_back();
    }
    for (const std::string& name : *components) {
        if (!place.directory)
            break;
        place.directory = openDirectory(place.directory, name);
    }
    if (!place.directory)
        return std::nullopt;
    return place;
}

/// What stands at a place; nothing for a missing entry and for a symbolic link, which counts as missing.
std::optional<struct stat> statusOf(const Place& place) {
    struct stat status {};
    if (fstatat(place.directory.number(), place.entry(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
        S_ISLNK(status.st_mode))
        return std::nullopt;
    return status;
}

bool writeWhole(const FileDescriptor& file, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file.number(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes a file under a name of its own beside the target.
FileDescriptor createTemporaryFile(const Place& target, std::string& name) {
    static std::atomic<unsigned> counter = 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = std::string(temporaryPrefix) + std::to_string(getpid()) + "-" + std::to_string(counter++);
        FileDescriptor file(openat(target.directory.number(), name.c_str(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
        // An older process of the same number may have been killed while it wrote.
        if (file || errno != EEXIST)
            return file;
    }
    return {};
}

/// Brings the directory's new entry to the disk. Should that fail, the new file stands all the same.
void syncDirectory(const FileDescriptor& directory) {
    FileDescriptor readable(openat(directory.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (readable)
        fsync(readable.number());
}

/// Reads to the end of the file, which another process may be changing.
std::optional<std::vector<std::uint8_t>> readWhole(const FileDescriptor& file, std::size_t expectedBytes,
                                                   std::size_t maximumBytes) {
    // One byte more than expected: a file that does not fill the room has been read to its end.
    std::vector<std::uint8_t> bytes(expectedBytes + 1);
    std::size_t length = 0;
    for (;;) {
        const std::size_t room = bytes.size() - length;
        const ssize_t count = ::read(file.number(), bytes.data() + length, room);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        length += static_cast<std::size_t>(count);
        if (length > maximumBytes)
            return std::nullopt;
        if (static_cast<std::size_t>(count) < room)
            break;
        bytes.resize(std::min(bytes.size() * 2, maximumBytes) + 1);
    }
    bytes.resize(length);
    return bytes;
}

} // namespace

FileManager& FileManager::shared() {
    // Never torn down: the product's stores read files until the process ends.
    static auto& manager = *new FileManager;
    return manager;
}

bool FileManager::setDeviceRoot(const std::filesystem::path& root) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(root, error);
    if (error)
        return false;
    std::filesystem::create_directories(absolute, error);
    if (!std::filesystem::is_directory(absolute, error))
        return false;
    root_ = absolute;
    return true;
}

std::optional<std::filesystem::path> FileManager::realPath(const std::string& devicePath) const {
    const auto components = componentsOf(devicePath);
    if (!components || root_.empty())
        return std::nullopt;
    std::filesystem::path path = root_;
    for (const std::string& name : *components) {
        path /= name;
        // The caller opens the path as a whole, so no part of it may be a symbolic link.
        std::error_code error;
        if (std::filesystem::is_symlink(path, error))
            return std::nullopt;
    }
    return path;
}

bool FileManager::fileExists(const std::string& devicePath) const {
    const auto place = placeOf(root_, devicePath);
    return place && statusOf(*place);
}

bool FileManager::directoryExists(const std::string& devicePath) const {
    const auto place = placeOf(root_, devicePath);
    const auto status = place ? statusOf(*place) : std::nullopt;
    return status && S_ISDIR(status->st_mode);
}

bool FileManager::createDirectory(const std::string& devicePath) const {
    const auto place = placeOf(root_, devicePath);
    return place && mkdirat(place->directory.number(), place->entry(), 0755) == 0;
}

bool FileManager::createDirectories(const std::string& devicePath) const {
    const auto components = componentsOf(devicePath);
    if (!components || root_.empty())
        return false;
    FileDescriptor directory = openRoot(root_);
    for (const std::string& name : *components) {
        if (!directory)
            return false;
        if (mkdirat(directory.number(), name.c_str(), 0755) != 0 && errno != EEXIST)
            return false;
        directory = openDirectory(directory, name);
    }
    return static_cast<bool>(directory);
}

std::optional<std::vector<std::string>>
FileManager::contentsOfDirectory(const std::string& devicePath) const {
    const auto place = placeOf(root_, devicePath);
    if (!place)
        return std::nullopt;
    FileDescriptor directory(
        openat(place->directory.number(), place->entry(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!directory)
        return std::nullopt;
    std::unique_ptr<DIR, int (*)(DIR*)> listing(fdopendir(directory.number()), closedir);
    if (!listing)
        return std::nullopt;
    directory.release();
    std::vector<std::string> names;
    while (const dirent* entry = readdir(listing.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && !name.starts_with(temporaryPrefix))
            names.emplace_back(name);
    }
    return names;
}

std::optional<std::vector<std::uint8_t>> FileManager::read(const std::string& devicePath,
                                                           std::size_t maximumBytes) const {
    const auto place = placeOf(root_, devicePath);
    if (!place)
        return std::nullopt;
    // Without blocking, so that a pipe laid in the way of a file does not hold the process up.
    const FileDescriptor file(openat(place->directory.number(), place->entry(),
                                     O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const auto expected = static_cast<std::uint64_t>(status.st_size);
    if (expected > maximumBytes)
        return std::nullopt;
    return readWhole(file, static_cast<std::size_t>(expected), maximumBytes);
}

bool FileManager::writeAtomically(const std::string& devicePath, std::span<const std::uint8_t> bytes) const {
    const auto place = placeOf(root_, devicePath);
    if (!place || place->name == ".")
        return false;
    std::string temporaryName;
    FileDescriptor file = createTemporaryFile(*place, temporaryName);
    if (!file)
        return false;
    const int directory = place->directory.number();
    if (!writeWhole(file, bytes) || fsync(file.number()) != 0 || close(file.release()) != 0 ||
        renameat(directory, temporaryName.c_str(), directory, place->entry()) != 0) {
        unlinkat(directory, temporaryName.c_str(), 0);
        return false;
    }
    syncDirectory(place->directory);
    return true;
}

bool FileManager::removeFile(const std::string& devicePath) const {
    const auto place = placeOf(root_, devicePath);
    return place && statusOf(*place) && unlinkat(place->directory.number(), place->entry(), 0) == 0;
}

std::shared_ptr<const PropertyList::Dictionary>
FileManager::sharedDictionary(const std::string& devicePath) const {
    static auto& decoded = *new DecodedFiles; // never torn down
    auto bytes = read(devicePath, DecodedFiles::largestFile);
    if (!bytes)
        return nullptr;
    return decoded.decode(devicePath, std::move(*bytes));
}

std::optional<PropertyList::Dictionary> FileManager::readDictionary(const std::string& devicePath,
                                                                    std::size_t maximumBytes) const {
    const auto bytes = read(devicePath, maximumBytes);
    if (!bytes)
        return std::nullopt;
    auto value = decodePropertyList(*bytes);
    if (!value || !value->dictionary())
        return std::nullopt;
    return std::move(*value->dictionary());
}

bool FileManager::writeDictionaryAtomically(const std::string& devicePath,
                                            const PropertyList::Dictionary& value) const {
    const std::string text = encodePropertyList(value);
    if (text.size() > PropertyListLimits().maximumBytes)
        return false;
    return writeAtomically(devicePath, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

} // namespace foundation
