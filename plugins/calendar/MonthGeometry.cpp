#include "MonthGeometry.h"

#include <algorithm>
#include <cmath>

namespace calendarplugin {

using vela::plugin::Point;
using vela::plugin::Rect;
using vela::plugin::Size;

namespace {
constexpr double inset = 4;
} // namespace

MonthGeometry::MonthGeometry(Size size) {
    const double numbersWidth = std::clamp(size.width * 0.09, 18.0, 30.0);
    const double headHeight = size.height >= 220 ? 26 : 18;
    left_ = inset + numbersWidth;
    top_ = headHeight;
    cellWidth_ = std::max((size.width - left_ - inset) / MonthGrid::columns, 0.0);
    cellHeight_ = std::max((size.height - top_ - inset) / MonthGrid::rows, 0.0);
}

Rect MonthGeometry::head(int column) const {
    return {left_ + cellWidth_ * column, 0, cellWidth_, top_};
}

Rect MonthGeometry::weekNumber(int row) const {
    return {inset, top_ + cellHeight_ * row, left_ - inset, cellHeight_};
}

Rect MonthGeometry::day(int row, int column) const {
    return {left_ + cellWidth_ * column, top_ + cellHeight_ * row, cellWidth_, cellHeight_};
}

std::optional<MonthGeometry::Cell> MonthGeometry::cellAt(Point point) const {
    if (!(cellWidth_ > 0) || !(cellHeight_ > 0))
        return std::nullopt;
    const double column = std::floor((point.x - left_) / cellWidth_);
    const double row = std::floor((point.y - top_) / cellHeight_);
    if (!(column >= 0) || column >= MonthGrid::columns || !(row >= 0) || row >= MonthGrid::rows)
        return std::nullopt;
    return Cell{static_cast<int>(row), static_cast<int>(column)};
}

} // namespace calendarplugin
