#include "platform/toolkit/rendering/Path.h"

#include <numbers>

namespace toolkit {

Path Path::rect(Rect rect) {
    Path path;
    path.moveTo(rect.origin())
        .lineTo({rect.maxX(), rect.y})
        .lineTo({rect.maxX(), rect.maxY()})
        .lineTo({rect.x, rect.maxY()})
        .close();
    return path;
}

Path Path::roundedRect(Rect rect, double radius) {
    radius = std::min(radius, std::min(rect.width, rect.height) / 2);
    if (!(radius > 0))
        return Path::rect(rect);
    constexpr double quarter = std::numbers::pi / 2;
    const Rect inner = rect.insetBy(radius, radius);
    Path path;
    path.moveTo({rect.x, inner.y})
        .arc({inner.x, inner.y}, radius, 2 * quarter, 3 * quarter)
        .arc({inner.maxX(), inner.y}, radius, -quarter, 0)
        .arc({inner.maxX(), inner.maxY()}, radius, 0, quarter)
        .arc({inner.x, inner.maxY()}, radius, quarter, 2 * quarter)
        .close();
    return path;
}

Path Path::ellipse(Rect rect) {
    // The distance of a Bézier curve's control points that comes closest to a quarter of a circle.
    constexpr double control = 0.5522847498307936;
    const Point center = rect.center();
    const double dx = rect.width / 2 * control, dy = rect.height / 2 * control;
    Path path;
    path.moveTo({rect.maxX(), center.y})
        .curveTo({rect.maxX(), center.y + dy}, {center.x + dx, rect.maxY()}, {center.x, rect.maxY()})
        .curveTo({center.x - dx, rect.maxY()}, {rect.x, center.y + dy}, {rect.x, center.y})
        .curveTo({rect.x, center.y - dy}, {center.x - dx, rect.y}, {center.x, rect.y})
        .curveTo({center.x + dx, rect.y}, {rect.maxX(), center.y - dy}, {rect.maxX(), center.y})
        .close();
    return path;
}

} // namespace toolkit
