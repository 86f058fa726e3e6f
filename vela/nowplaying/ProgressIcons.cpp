#include "vela/nowplaying/ProgressIcons.h"

#include "platform/toolkit/geometry/AffineTransform.h"

#include <initializer_list>
#include <numbers>

using toolkit::AffineTransform;
using toolkit::Path;
using toolkit::Point;

namespace vela {

namespace {

constexpr double barThickness = 0.3; // of the half-width
constexpr double tickLeft = 0.46;
constexpr double tickTop = 1.02;

/// A closed outline whose corners are counted in bars.
Path polygon(std::initializer_list<Point> corners, double bar, const AffineTransform& place) {
    const AffineTransform map = AffineTransform::scale(bar, bar).then(place);
    Path path;
    for (const Point& corner : corners)
        path.elements().empty() ? path.moveTo(map.apply(corner)) : path.lineTo(map.apply(corner));
    return path.close();
}

} // namespace

Path tickPath(double halfWidth) {
    // A short bar and a long one at right angles, turned until they stand on their corner.
    const auto place = AffineTransform::rotation(-std::numbers::pi / 4)
                           .then(AffineTransform::translation(tickLeft * halfWidth, tickTop * halfWidth));
    return polygon({{0, 0}, {1, 0}, {1, 1}, {3, 1}, {3, 2}, {0, 2}}, barThickness * halfWidth, place);
}

Path crossPath(double halfWidth) {
    const auto place = AffineTransform::rotation(std::numbers::pi / 4)
                           .then(AffineTransform::translation(halfWidth, halfWidth));
    return polygon({{-0.5, -2},
                    {0.5, -2},
                    {0.5, -0.5},
                    {2, -0.5},
                    {2, 0.5},
                    {0.5, 0.5},
                    {0.5, 2},
                    {-0.5, 2},
                    {-0.5, 0.5},
                    {-2, 0.5},
                    {-2, -0.5},
                    {-0.5, -0.5}},
                   barThickness * halfWidth, place);
}

} // namespace vela
