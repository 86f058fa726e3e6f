// Dates in words: "May 2026", "Wednesday, 6 May 2026", "Day 126 of 365  ·  Week 19".
#pragma once

#include "CalendarDate.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace calendarplugin {

std::string monthTitle(Month month);
/// "Sep 2026"
std::string shortMonthTitle(Month month);
std::string fullDate(Date date);
std::string dayAndWeek(Date date);
/// The letters above the columns.
std::array<const char*, 7> weekdayHeads(WeekStart start);

/// "2026-05-06"; four digits for the year.
std::string isoText(Date date);
/// Nothing when the text is no day in exactly that form.
std::optional<Date> dateFromIsoText(std::string_view text);

} // namespace calendarplugin
