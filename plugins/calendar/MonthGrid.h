// A month as six rows of seven days, with the days of its neighbours that fill the first and last rows, and
// each row's week number.
#pragma once

#include "CalendarDate.h"

#include <array>
#include <optional>

namespace calendarplugin {

struct MonthGrid {
    static constexpr int rows = 6;
    static constexpr int columns = 7;

    struct Row {
        std::array<std::optional<Date>, columns> days; // nothing beyond the years that are known
        /// That of the row's Monday; nothing for a row without days of the month.
        std::optional<int> week;
    };

    Month month;
    std::array<Row, rows> weeks;
};

MonthGrid monthGrid(Month month, WeekStart start);

} // namespace calendarplugin
