// How long the processor's cores have been busy and idle, from the text of /proc/stat.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace systemplugin {

/// In the kernel's ticks since its start.
struct CoreTimes {
    int core = 0;
    std::uint64_t busy = 0;
    std::uint64_t idle = 0; // waiting for a disk counts as idle
    friend bool operator==(const CoreTimes&, const CoreTimes&) = default;
};

/// The cores that are switched on, in the kernel's order. Lines that are not understood are passed over.
std::vector<CoreTimes> parseProcessorTimes(std::string_view text);

/// The busy part from one moment to a later one, from 0 to 1, of each core that is there at both. A core
/// whose counters did not move is idle.
std::vector<double> coreLoads(const std::vector<CoreTimes>& before, const std::vector<CoreTimes>& after);
/// Of all cores together; 0 without any.
double totalLoad(const std::vector<double>& coreLoads);

} // namespace systemplugin
