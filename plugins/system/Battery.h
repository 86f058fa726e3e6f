// The battery's charge and what is happening to it, from the kernel's directory of power supplies.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace systemplugin {

enum class BatteryState { Unknown, Charging, Discharging, NotCharging, Full };

struct Battery {
    int percent = 0; // from 0 to 100
    BatteryState state = BatteryState::Unknown;
    friend bool operator==(const Battery&, const Battery&) = default;
};

/// From the texts of a supply's "capacity" and "status"; nothing when the first is no number.
std::optional<Battery> parseBattery(std::string_view capacity, std::string_view status);
/// The first battery by name of those that drive the device (not a mouse's); nothing without one.
std::optional<Battery> readBattery(const std::string& directory);

/// "80 %, charging", or that there is none.
std::string describe(const std::optional<Battery>& battery);

} // namespace systemplugin
