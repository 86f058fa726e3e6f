#include "Battery.h"

#include "Fields.h"
#include "KernelFile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace systemplugin {

namespace {
constexpr std::size_t mostSupplies = 64;

/// The text of a supply's file without the end of its line.
std::string readWord(const std::filesystem::path& file) {
    const std::string text = readKernelFile(file.string()).value_or("");
    const auto lines = linesOf(text);
    return lines.empty() ? std::string() : std::string(lines.front());
}

std::vector<std::filesystem::path> suppliesIn(const std::string& directory) {
    std::vector<std::filesystem::path> supplies;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(directory, error), end;
         !error && entry != end && supplies.size() < mostSupplies; entry.increment(error))
        supplies.push_back(entry->path());
    std::sort(supplies.begin(), supplies.end());
    return supplies;
}

BatteryState stateFrom(std::string_view status) {
    if (status == "Charging")
        return BatteryState::Charging;
    if (status == "Discharging")
        return BatteryState::Discharging;
    if (status == "Not charging")
        return BatteryState::NotCharging;
    return status == "Full" ? BatteryState::Full : BatteryState::Unknown;
}
} // namespace

std::optional<Battery> parseBattery(std::string_view capacity, std::string_view status) {
    const auto words = wordsOf(capacity);
    const auto percent = words.size() == 1 ? numberFrom(words[0]) : std::nullopt;
    if (!percent)
        return std::nullopt;
    const auto lines = linesOf(status);
    return Battery{static_cast<int>(std::min<std::uint64_t>(*percent, 100)),
                   lines.empty() ? BatteryState::Unknown : stateFrom(lines.front())};
}

std::optional<Battery> readBattery(const std::string& directory) {
    for (const auto& supply : suppliesIn(directory)) {
        if (readWord(supply / "type") != "Battery" || readWord(supply / "scope") == "Device")
            continue;
        if (const auto battery = parseBattery(readWord(supply / "capacity"), readWord(supply / "status")))
            return battery;
    }
    return std::nullopt;
}

std::string describe(const std::optional<Battery>& battery) {
    if (!battery)
        return "No battery";
    const std::string percent = std::to_string(battery->percent) + " %";
    switch (battery->state) {
    case BatteryState::Charging:
        return percent + ", charging";
    case BatteryState::Discharging:
        return percent + ", in use";
    case BatteryState::NotCharging:
        return percent + ", plugged in";
    case BatteryState::Full:
        return percent + ", full";
    case BatteryState::Unknown:
        break;
    }
    return percent;
}

} // namespace systemplugin
