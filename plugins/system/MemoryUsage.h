// How much memory there is and how much of it is taken, from the text of /proc/meminfo.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace systemplugin {

/// In bytes.
struct MemoryUsage {
    std::uint64_t total = 0;
    std::uint64_t used = 0; // what programs hold; what the kernel can give back at once does not count
    std::uint64_t swapTotal = 0;
    std::uint64_t swapUsed = 0;

    double usedPart() const { return total > 0 ? static_cast<double>(used) / static_cast<double>(total) : 0; }
    friend bool operator==(const MemoryUsage&, const MemoryUsage&) = default;
};

/// Nothing when the text does not say how much there is, or how much is free.
std::optional<MemoryUsage> parseMemoryUsage(std::string_view text);

} // namespace systemplugin
