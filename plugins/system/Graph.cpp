#include "Graph.h"

#include <algorithm>
#include <cmath>

namespace systemplugin {

using namespace vela::plugin;

std::vector<std::vector<Point>> graphPieces(const History& history, double now, double top, Rect area) {
    std::vector<std::vector<Point>> pieces;
    double lastTime = 0;
    for (const History::Sample& sample : history.samples()) {
        const double age = now - sample.time;
        if (age < 0 || age > History::duration)
            continue;
        if (pieces.empty() || sample.time - lastTime > History::largestStep)
            pieces.emplace_back();
        lastTime = sample.time;
        const double part = top > 0 ? std::clamp(sample.value / top, 0.0, 1.0) : 0;
        pieces.back().push_back(
            {area.right() - age / History::duration * area.width, area.bottom() - part * area.height});
    }
    return pieces;
}

void drawGraph(Canvas& canvas, const History& history, double now, double top, Rect area, Color color) {
    for (const auto& points : graphPieces(history, now, top, area)) {
        Path line;
        Path surface;
        surface.moveTo({points.front().x, area.bottom()});
        for (const Point& point : points) {
            &point == &points.front() ? line.moveTo(point) : line.lineTo(point);
            surface.lineTo(point);
        }
        if (points.size() == 1) // a lone value is a dot
            line.lineTo(points.front());
        surface.lineTo({points.back().x, area.bottom()}).close();
        canvas.fill(surface, color.withAlpha(0.25));
        canvas.stroke(line, 1.5, color);
    }
}

double roundedTop(double largest, double least) {
    if (!(largest > least) || !std::isfinite(largest))
        return least;
    const double power = std::pow(10, std::floor(std::log10(largest)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (largest <= factor * power)
            return factor * power;
    return 10 * power;
}

} // namespace systemplugin
