// The system log: single lines, kept for those who ask and written to standard error.
//
// Any thread. What outside data puts into a line loses its control characters on the way in, so that one call
// always makes one line.
#pragma once

#include "platform/foundation/Handle.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

/// Writes one line to the system log.
void log(std::string_view line);

/// Every line since the process began or since clearLog(), oldest first; the newest 10,000 are kept.
std::vector<std::string> loggedLines();
void clearLog();

/// Whether lines also go to standard error; on at first.
void setLogToStandardError(bool enabled);

} // namespace foundation
