// Draws one month's days: today on a disc, the chosen day in a ring, a dot under days that have a note.
#pragma once

#include "DayNotes.h"
#include "MonthGeometry.h"
#include "MonthGrid.h"

#include "VelaPlugin.h"

#include <optional>

namespace calendarplugin {

struct PageMarks {
    Date today;
    Date selected;
    std::optional<Date> pressed;
    const DayNotes* notes = nullptr;
};

void drawMonthPage(vela::plugin::Canvas& canvas, const MonthGeometry& geometry, const MonthGrid& grid,
                   const PageMarks& marks);
void drawWeekdayHeads(vela::plugin::Canvas& canvas, const MonthGeometry& geometry, WeekStart start);

} // namespace calendarplugin
