// How lengths of time are written.
#pragma once

#include <cstdint>
#include <string>

namespace clockplugin {

/// "4:05" or "1:04:05".
std::string countdownText(int seconds);
/// "04:05.67" or "1:04:05.67".
std::string stopwatchText(std::int64_t hundredths);
/// In words that a glance takes in: "5 minutes", "1 hour 30 minutes", "45 seconds".
std::string spokenDuration(int seconds);

} // namespace clockplugin
