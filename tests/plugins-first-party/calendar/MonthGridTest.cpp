#include "plugins/calendar/MonthGrid.h"

#include "plugins/calendar/DateText.h"
#include "plugins/calendar/MonthGeometry.h"

#include <gtest/gtest.h>

namespace calendarplugin {

namespace {

Month month(int year, unsigned number) {
    return std::chrono::year(year) / std::chrono::month(number);
}

std::string at(const MonthGrid& grid, std::size_t row, std::size_t column) {
    const auto& date = grid.weeks[row].days[column];
    return date ? isoText(*date) : "none";
}

} // namespace

TEST(MonthGrid, BeginsWithTheWeekOfTheFirst) {
    const MonthGrid march = monthGrid(month(2016, 3), WeekStart::Monday);
    EXPECT_EQ(at(march, 0, 0), "2016-02-29");
    EXPECT_EQ(at(march, 0, 1), "2016-03-01");
    EXPECT_EQ(at(march, 4, 3), "2016-03-31");
    EXPECT_EQ(at(march, 5, 6), "2016-04-10");
    EXPECT_EQ(march.weeks[0].week, 9);
    EXPECT_EQ(march.weeks[4].week, 13);
    EXPECT_EQ(march.weeks[5].week, std::nullopt);

    const MonthGrid fromSunday = monthGrid(month(2016, 3), WeekStart::Sunday);
    EXPECT_EQ(at(fromSunday, 0, 0), "2016-02-28");
    EXPECT_EQ(fromSunday.weeks[0].week, 9); // its Monday's
}

TEST(MonthGrid, HoldsEveryDayOfEveryMonthOnceAndInOrder) {
    for (const WeekStart start : {WeekStart::Monday, WeekStart::Sunday})
        for (int year = 1999; year <= 2032; ++year)
            for (unsigned number = 1; number <= 12; ++number) {
                const MonthGrid grid = monthGrid(month(year, number), start);
                const Date first = grid.month / 1;
                const int before = columnOf(first, start);
                for (int cell = 0; cell < MonthGrid::rows * MonthGrid::columns; ++cell) {
                    const auto& week = grid.weeks[static_cast<std::size_t>(cell / MonthGrid::columns)];
                    ASSERT_EQ(week.days[static_cast<std::size_t>(cell % MonthGrid::columns)],
                              dateAfter(first, cell - before))
                        << year << " " << number << " " << cell;
                }
                const Date last = grid.month / std::chrono::last;
                EXPECT_LE(before + static_cast<int>(static_cast<unsigned>(last.day())),
                          MonthGrid::rows * MonthGrid::columns);
            }
}

TEST(MonthGrid, EndsWithTime) {
    const MonthGrid first = monthGrid(month(1, 1), WeekStart::Sunday);
    EXPECT_EQ(at(first, 0, 0), "none");
    EXPECT_EQ(at(first, 0, 1), "0001-01-01"); // a Monday
    const MonthGrid last = monthGrid(month(9999, 12), WeekStart::Monday);
    EXPECT_EQ(at(last, 4, 4), "9999-12-31");
    EXPECT_EQ(at(last, 4, 5), "none");
    EXPECT_EQ(last.weeks[4].week, 52);
}

TEST(MonthGeometry, EveryDayIsFoundAtItsMiddleAndNoneElsewhere) {
    for (const vela::plugin::Size size : {vela::plugin::Size{260, 320}, {380, 200}, {600, 700}, {120, 150}}) {
        const MonthGeometry geometry(size);
        for (int row = 0; row < MonthGrid::rows; ++row)
            for (int column = 0; column < MonthGrid::columns; ++column) {
                const vela::plugin::Rect cell = geometry.day(row, column);
                EXPECT_EQ(geometry.cellAt(cell.center()), (MonthGeometry::Cell{row, column}));
                EXPECT_LE(cell.right(), size.width);
                EXPECT_LE(cell.bottom(), size.height);
            }
        EXPECT_FALSE(geometry.cellAt(geometry.weekNumber(2).center()));
        EXPECT_FALSE(geometry.cellAt(geometry.head(3).center()));
        EXPECT_FALSE(geometry.cellAt({size.width + 1, size.height / 2}));
        EXPECT_FALSE(geometry.cellAt({-1e300, 1e300}));
    }
    EXPECT_FALSE(MonthGeometry({0, 0}).cellAt({0, 0}));
}

} // namespace calendarplugin
