#include "DiskUsage.h"

#include <algorithm>

#include <sys/statvfs.h>

namespace systemplugin {

std::optional<DiskUsage> readDiskUsage(const std::string& path) {
    struct statvfs status {};
    if (statvfs(path.c_str(), &status) != 0 || status.f_blocks == 0 || status.f_frsize == 0)
        return std::nullopt;
    const std::uint64_t block = status.f_frsize;
    const std::uint64_t total = status.f_blocks;
    return DiskUsage{total * block, (total - std::min<std::uint64_t>(total, status.f_bfree)) * block,
                     std::min<std::uint64_t>(total, status.f_bavail) * block};
}

} // namespace systemplugin
