#include "CalendarSettings.h"

#include <string_view>

namespace calendarplugin {

namespace {
constexpr std::string_view sundayLine = "week starts on sunday\n";
constexpr std::string_view mondayLine = "week starts on monday\n";
} // namespace

WeekStart loadWeekStart(const vela::plugin::Storage& storage) {
    return storage.read(settingsFile) == sundayLine ? WeekStart::Sunday : WeekStart::Monday;
}

bool saveWeekStart(vela::plugin::Storage& storage, WeekStart start) {
    return storage.write(settingsFile, start == WeekStart::Sunday ? sundayLine : mondayLine);
}

} // namespace calendarplugin
