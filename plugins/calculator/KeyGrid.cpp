#include "KeyGrid.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace calculatorplugin {

using vela::plugin::Rect;

namespace {

constexpr double leastKeyHeight = 44;
constexpr double greatestKeyHeight = 76;  // on a panel of ordinary width
constexpr double greatestKeyShare = 0.17; // of a wide panel's width
constexpr double leastDisplayHeight = 40;
constexpr double margin = 6;
/// Less high than this, four columns would make the keys too flat for a finger.
constexpr double leastTallHeight = leastDisplayHeight + 6 * leastKeyHeight + 2 * margin;

/// Keys row by row; one that stands twice side by side is twice as wide.
template <std::size_t columns, std::size_t rows>
using Arrangement = std::array<std::array<Key, columns>, rows>;

constexpr Arrangement<4, 1> memoryRow{{
    {Key::MemoryClear, Key::MemoryAdd, Key::MemorySubtract, Key::MemoryRecall},
}};

constexpr Arrangement<4, 5> tallRows{{
    {Key::Clear, Key::Sign, Key::Percent, Key::Divide},
    {Key::Seven, Key::Eight, Key::Nine, Key::Multiply},
    {Key::Four, Key::Five, Key::Six, Key::Subtract},
    {Key::One, Key::Two, Key::Three, Key::Add},
    {Key::Zero, Key::Zero, Key::Point, Key::Equals},
}};

constexpr Arrangement<6, 4> wideRows{{
    {Key::MemoryClear, Key::Clear, Key::Seven, Key::Eight, Key::Nine, Key::Divide},
    {Key::MemoryRecall, Key::Sign, Key::Four, Key::Five, Key::Six, Key::Multiply},
    {Key::MemorySubtract, Key::Percent, Key::One, Key::Two, Key::Three, Key::Subtract},
    {Key::MemoryAdd, Key::Zero, Key::Zero, Key::Point, Key::Equals, Key::Add},
}};

template <std::size_t columns, std::size_t rows>
void place(const Arrangement<columns, rows>& arrangement, Rect area, std::vector<PlacedKey>& keys) {
    const double width = area.width / columns;
    const double height = area.height / rows;
    for (std::size_t row = 0; row < rows; ++row) {
        std::optional<Key> left;
        for (std::size_t column = 0; column < columns; ++column) {
            const Key key = arrangement[row][column];
            if (left == key)
                keys.back().frame.width += width;
            else
                keys.push_back({key,
                                {area.x + width * static_cast<double>(column),
                                 area.y + height * static_cast<double>(row), width, height}});
            left = key;
        }
    }
}

} // namespace

KeyGrid KeyGrid::in(Rect bounds) {
    const Rect area = bounds.insetBy(margin, margin);
    KeyGrid grid;
    if (bounds.height < leastTallHeight) {
        const double keys =
            std::max(4 * leastKeyHeight, std::min(area.height - leastDisplayHeight, 4 * greatestKeyHeight));
        grid.display = {area.x, area.y, area.width, std::max(0.0, area.height - keys)};
        place(wideRows, {area.x, grid.display.bottom(), area.width, keys}, grid.keys);
        return grid;
    }
    // The keys take most of the height, yet leave the display a part of what there is to spare.
    const double room = area.height - leastDisplayHeight;
    const double greatest = std::max(greatestKeyHeight, area.width * greatestKeyShare);
    const double height = std::clamp(room * 0.84 / 5.7, leastKeyHeight, greatest);
    const double low = std::max(leastKeyHeight, height * 0.7);
    grid.display = {area.x, area.y, area.width, area.height - 5 * height - low};
    place(memoryRow, {area.x, grid.display.bottom(), area.width, low}, grid.keys);
    place(tallRows, {area.x, grid.display.bottom() + low, area.width, 5 * height}, grid.keys);
    return grid;
}

} // namespace calculatorplugin
