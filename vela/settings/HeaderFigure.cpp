#include "vela/settings/HeaderFigure.h"

#include "vela/settings/PageColors.h"
#include "vela/settings/velaBar.h"

#include <map>

using toolkit::Color;

namespace vela::figure {

namespace {

using Heights = std::map<int, double>; // by number

const Color lightGrey = Color::white(222 / 255.0);

const Heights greyHeights{{10, 17},  {11, 60},  {12, 79}, {13, 91}, {14, 100}, {15, 106},
                          {16, 111}, {17, 113}, {35, 78}, {38, 78}, {41, 78}};
const Heights redHeights{{18, 14}, {19, 5},  {20, 35}, {22, 14}, {23, 25}, {24, 35}, {25, 35.5},
                         {26, 30}, {27, 11}, {29, 30}, {30, 14}, {31, 14}, {32, 20}, {33, 33}};
const Heights secondBarHeights{{14, 25}, {15, 31}, {16, 34}, {17, 23}};

std::optional<double> find(const Heights& heights, int number) {
    const auto found = heights.find(number);
    return found == heights.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

Color barColor(int number) {
    if (redHeights.contains(number))
        return colors::accent();
    return greyHeights.contains(number) ? lightGrey : velaBar::defaultColor();
}

std::optional<Color> secondBarColor(int number) {
    switch (number) {
    case 14:
        return Color::rgba(1, 195 / 255.0, 202 / 255.0);
    case 15:
        return Color::rgba(1, 135 / 255.0, 150 / 255.0);
    case 16:
    case 17:
        return colors::accent();
    default:
        return std::nullopt;
    }
}

std::optional<double> height(const Color& color, int number) {
    if (color == velaBar::defaultColor())
        return std::nullopt;
    if (color == lightGrey)
        return find(greyHeights, number);
    // Some second bars have the colour of the red ones; no red bar has their numbers.
    const auto second = find(secondBarHeights, number);
    return second ? second : find(redHeights, number);
}

} // namespace vela::figure
