#include "ProcessorTimes.h"

#include "Fields.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace systemplugin {

namespace {
constexpr std::uint64_t mostCores = 4096;
constexpr std::uint64_t mostTicks = UINT64_C(1) << 60; // so that sums of a line's counters fit
// user, nice, system, idle, waiting, interrupts, soft interrupts, stolen; the guests' time that may follow is
// part of user and nice already.
constexpr std::size_t countedColumns = 8;
constexpr std::size_t idleColumn = 3;
constexpr std::size_t waitingColumn = 4;

std::optional<CoreTimes> parseCore(std::string_view line) {
    const auto words = wordsOf(line);
    if (words.size() <= idleColumn + 1 || !words[0].starts_with("cpu"))
        return std::nullopt;
    const auto number = numberFrom(words[0].substr(3)); // the line of all cores has none
    if (!number || *number >= mostCores)
        return std::nullopt;
    CoreTimes times{static_cast<int>(*number), 0, 0};
    for (std::size_t column = 0; column < std::min(countedColumns, words.size() - 1); ++column) {
        const auto ticks = numberFrom(words[column + 1]);
        if (!ticks || *ticks > mostTicks)
            return std::nullopt;
        (column == idleColumn || column == waitingColumn ? times.idle : times.busy) += *ticks;
    }
    return times;
}

/// Counters may go back a little, for instance when a core is switched off and on.
std::uint64_t increase(std::uint64_t before, std::uint64_t after) {
    return after > before ? after - before : 0;
}
} // namespace

std::vector<CoreTimes> parseProcessorTimes(std::string_view text) {
    std::vector<CoreTimes> cores;
    for (const std::string_view line : linesOf(text)) {
        const auto core = line.starts_with("cpu") ? parseCore(line) : std::nullopt;
        const bool known = core && std::any_of(cores.begin(), cores.end(), [&](const CoreTimes& other) {
                               return other.core == core->core;
                           });
        if (core && !known)
            cores.push_back(*core);
    }
    return cores;
}

std::vector<double> coreLoads(const std::vector<CoreTimes>& before, const std::vector<CoreTimes>& after) {
    std::vector<double> loads;
    for (const CoreTimes& now : after) {
        const auto then = std::find_if(before.begin(), before.end(),
                                       [&](const CoreTimes& other) { return other.core == now.core; });
        if (then == before.end())
            continue;
        const auto busy = static_cast<double>(increase(then->busy, now.busy));
        const auto idle = static_cast<double>(increase(then->idle, now.idle));
        loads.push_back(busy + idle > 0 ? busy / (busy + idle) : 0);
    }
    return loads;
}

double totalLoad(const std::vector<double>& coreLoads) {
    if (coreLoads.empty())
        return 0;
    return std::accumulate(coreLoads.begin(), coreLoads.end(), 0.0) / static_cast<double>(coreLoads.size());
}

} // namespace systemplugin
