#include "MonthPage.h"

#include "DateText.h"
#include "Look.h"

#include <algorithm>
#include <numbers>
#include <string>

namespace calendarplugin {

using namespace vela::plugin;

namespace {
constexpr double largestDisc = 40; // points
constexpr double dotSize = 5;

TextStyle centered(double size, Weight weight) {
    return {.font = {.size = size, .weight = weight, .monospacedDigits = true},
            .alignment = Alignment::Center};
}

Rect discIn(Rect cell) {
    const double size = std::min({cell.width, cell.height, largestDisc}) - 2;
    return {cell.center().x - size / 2, cell.center().y - size / 2, size, size};
}

void drawRing(Canvas& canvas, Rect disc) {
    Path ring;
    ring.arc(disc.center(), disc.width / 2 - 1, 0, 2 * std::numbers::pi).close();
    canvas.stroke(ring, 2, colors::primary);
}

void drawDay(Canvas& canvas, Rect cell, Date date, bool ofMonth, const PageMarks& marks) {
    const Rect disc = discIn(cell);
    const bool isToday = date == marks.today;
    if (isToday && ofMonth)
        canvas.fillEllipse(disc, look::accent);
    if (date == marks.pressed)
        canvas.fillEllipse(disc, colors::pressedFill);
    if (date == marks.selected && ofMonth)
        drawRing(canvas, disc);
    const double size = std::clamp(std::min(cell.width, cell.height) * 0.46, 11.0, 19.0);
    const bool marked = isToday || date == marks.selected;
    canvas.drawText(std::to_string(static_cast<unsigned>(date.day())), cell,
                    centered(size, marked && ofMonth ? Weight::Semibold : Weight::Regular),
                    ofMonth ? colors::primary : look::faintText);
    if (ofMonth && marks.notes && marks.notes->has(date))
        canvas.fillEllipse({disc.center().x - dotSize / 2, disc.bottom() - dotSize - 1, dotSize, dotSize},
                           colors::yellow);
}
} // namespace

void drawMonthPage(Canvas& canvas, const MonthGeometry& geometry, const MonthGrid& grid,
                   const PageMarks& marks) {
    for (int row = 0; row < MonthGrid::rows; ++row) {
        const MonthGrid::Row& week = grid.weeks[static_cast<std::size_t>(row)];
        if (week.week)
            canvas.drawText(std::to_string(*week.week), geometry.weekNumber(row),
                            centered(11, Weight::Regular), look::faintText);
        for (int column = 0; column < MonthGrid::columns; ++column)
            if (const auto& date = week.days[static_cast<std::size_t>(column)])
                drawDay(canvas, geometry.day(row, column), *date, date->month() == grid.month.month(), marks);
    }
}

void drawWeekdayHeads(Canvas& canvas, const MonthGeometry& geometry, WeekStart start) {
    const auto heads = weekdayHeads(start);
    for (int column = 0; column < MonthGrid::columns; ++column)
        canvas.drawText(heads[static_cast<std::size_t>(column)], geometry.head(column),
                        centered(12, Weight::Semibold), look::secondaryText);
}

} // namespace calendarplugin
