#include "MonthGrid.h"

#include <algorithm>

namespace calendarplugin {

namespace {
/// Every row has a Monday, but the last one of all years may lie without it: then its first day serves.
std::optional<int> weekOf(const MonthGrid::Row& row, WeekStart start, Month month) {
    const auto isOfMonth = [&](const std::optional<Date>& day) {
        return day && day->year() == month.year() && day->month() == month.month();
    };
    if (std::none_of(row.days.begin(), row.days.end(), isOfMonth))
        return std::nullopt;
    const auto& monday = row.days[start == WeekStart::Monday ? 0 : 1];
    const auto& any = *std::find_if(row.days.begin(), row.days.end(), isOfMonth);
    return isoWeek(monday ? *monday : *any).week;
}
} // namespace

MonthGrid monthGrid(Month month, WeekStart start) {
    MonthGrid grid{month, {}};
    const Date first = month / 1;
    int offset = -columnOf(first, start);
    for (MonthGrid::Row& row : grid.weeks) {
        for (auto& day : row.days)
            day = dateAfter(first, offset++);
        row.week = weekOf(row, start, month);
    }
    return grid;
}

} // namespace calendarplugin
