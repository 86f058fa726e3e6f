#include "hosts/media/library/DirectoryWalk.h"

#include "hosts/media/library/TagReader.h"

#include <algorithm>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace playback {

namespace {

constexpr int deepestDirectory = 64; // each holds a descriptor open while it is visited

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

foundation::FileDescriptor openDirectory(int parent, const char* name) {
    return foundation::FileDescriptor(openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// The names in a directory in order, so that a walk is the same every time.
std::vector<std::string> namesIn(const foundation::FileDescriptor& directory) {
    std::vector<std::string> names;
    foundation::FileDescriptor own = openDirectory(directory.number(), ".");
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(own ? fdopendir(own.number()) : nullptr, closedir);
    if (!listing)
        return names;
    own.release();
    while (const dirent* entry = readdir(listing.get()))
        if (entry->d_name[0] != '.')
            names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

void DirectoryWalk::visit(const std::filesystem::path& directory) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(directory, error).lexically_normal();
    if (const auto opened = openDirectory(AT_FDCWD, absolute.c_str()); opened && !error)
        visit(opened, absolute, 0);
}

void DirectoryWalk::visit(const foundation::FileDescriptor& directory, const std::string& path, int depth) {
    struct stat status {};
    if (depth > deepestDirectory || fstat(directory.number(), &status) != 0 ||
        !visited_.emplace(status.st_dev, status.st_ino).second)
        return;
    for (const std::string& name : namesIn(directory)) {
        if (cancelled_)
            return;
        visitEntry(directory, path, name.c_str(), depth);
    }
}

void DirectoryWalk::visitEntry(const foundation::FileDescriptor& directory, const std::string& path,
                               const char* name, int depth) {
    struct stat status {};
    if (fstatat(directory.number(), name, &status, 0) != 0)
        return;
    const std::string entry = path.ends_with('/') ? path + name : path + '/' + name;
    if (S_ISDIR(status.st_mode)) {
        if (const auto opened = openDirectory(directory.number(), name))
            visit(opened, entry, depth + 1);
    } else if (S_ISREG(status.st_mode) && isAudioFileName(name) &&
               faccessat(directory.number(), name, R_OK, AT_EACCESS) == 0) {
        files_.push_back({entry, nanoseconds(status.st_mtim), static_cast<std::uint64_t>(status.st_size)});
    }
}

} // namespace playback
