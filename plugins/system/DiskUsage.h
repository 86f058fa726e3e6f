// How much of the disk is taken.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace systemplugin {

/// In bytes.
struct DiskUsage {
    std::uint64_t total = 0;
    std::uint64_t used = 0;
    std::uint64_t available = 0; // to ordinary programs

    double usedPart() const { return total > 0 ? static_cast<double>(used) / static_cast<double>(total) : 0; }
};

/// Of the disk that the path lies on; nothing when there is none, or it has no size.
std::optional<DiskUsage> readDiskUsage(const std::string& path);

} // namespace systemplugin
