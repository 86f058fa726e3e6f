#include "MemoryUsage.h"

#include "Fields.h"

#include <algorithm>
#include <map>

namespace systemplugin {

namespace {
using Values = std::map<std::string_view, std::uint64_t>;

constexpr std::uint64_t mostKilobytes = UINT64_C(1) << 50;

/// The lines "Name:  number kB" that matter, in bytes.
Values parseValues(std::string_view text) {
    Values values;
    for (const std::string_view line : linesOf(text)) {
        const auto words = wordsOf(line);
        if (words.size() != 3 || words[2] != "kB" || !words[0].ends_with(':'))
            continue;
        const auto kilobytes = numberFrom(words[1]);
        if (kilobytes && *kilobytes <= mostKilobytes)
            values.emplace(words[0].substr(0, words[0].size() - 1), *kilobytes * 1024);
    }
    return values;
}

std::optional<std::uint64_t> valueOf(const Values& values, std::string_view name) {
    const auto found = values.find(name);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

/// What programs could get: kernels before 3.14 do not say it, and then it is what is free or cached.
std::optional<std::uint64_t> availableMemory(const Values& values) {
    if (const auto available = valueOf(values, "MemAvailable"))
        return available;
    const auto free = valueOf(values, "MemFree");
    if (!free)
        return std::nullopt;
    return *free + valueOf(values, "Buffers").value_or(0) + valueOf(values, "Cached").value_or(0);
}
} // namespace

std::optional<MemoryUsage> parseMemoryUsage(std::string_view text) {
    const Values values = parseValues(text);
    const auto total = valueOf(values, "MemTotal");
    const auto available = availableMemory(values);
    if (!total || *total == 0 || !available)
        return std::nullopt;
    const std::uint64_t swapTotal = valueOf(values, "SwapTotal").value_or(0);
    const std::uint64_t swapFree = valueOf(values, "SwapFree").value_or(0);
    return MemoryUsage{*total, *total - std::min(*total, *available), swapTotal,
                       swapTotal - std::min(swapTotal, swapFree)};
}

} // namespace systemplugin
