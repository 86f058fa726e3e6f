// What the user has chosen: the day that weeks begin with.
#pragma once

#include "CalendarDate.h"

#include "VelaPlugin.h"

namespace calendarplugin {

inline constexpr const char* settingsFile = "settings.txt";

/// Monday when nothing was chosen, or the file is not understood.
WeekStart loadWeekStart(const vela::plugin::Storage& storage);
bool saveWeekStart(vela::plugin::Storage& storage, WeekStart start);

} // namespace calendarplugin
