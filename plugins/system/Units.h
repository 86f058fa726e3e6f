// Numbers as a person reads them: "3.4 GB", "120 kB/s", "42 %", "3 d 4 h".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace systemplugin {

/// Decimal units, three digits at most: 999 B, 1.5 kB, 24 MB.
std::string formatBytes(double bytes);
std::string formatRate(double bytesPerSecond);
/// `part` from 0 to 1; what lies outside is cut.
std::string formatPercent(double part);
/// The two largest units: "12 s", "5 min 3 s", "3 h 20 min", "12 d 4 h".
std::string formatDuration(double seconds);

/// The first number of /proc/uptime in seconds; nothing when there is none.
std::optional<double> parseUptime(std::string_view text);

} // namespace systemplugin
