// Where days lie within the month's area, and which day a point is on. The first column holds the week
// numbers, the first line the weekdays' heads.
#pragma once

#include "MonthGrid.h"

#include "VelaPlugin.h"

#include <optional>

namespace calendarplugin {

class MonthGeometry {
public:
    explicit MonthGeometry(vela::plugin::Size size);

    vela::plugin::Rect head(int column) const;
    vela::plugin::Rect weekNumber(int row) const;
    vela::plugin::Rect day(int row, int column) const;

    struct Cell {
        int row = 0;
        int column = 0;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    /// Nothing beside the days.
    std::optional<Cell> cellAt(vela::plugin::Point point) const;

private:
    double left_ = 0; // of the first day
    double top_ = 0;
    double cellWidth_ = 0;
    double cellHeight_ = 0;
};

} // namespace calendarplugin
