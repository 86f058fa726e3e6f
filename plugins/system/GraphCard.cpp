#include "GraphCard.h"

#include "Graph.h"
#include "Look.h"

#include <algorithm>

namespace systemplugin {

using namespace vela::plugin;

namespace {
constexpr double barHeight = 20;
constexpr double widestGap = 4; // between bars
constexpr int gridLines = 3;

void drawGrid(Canvas& canvas, Rect area) {
    for (int line = 1; line <= gridLines; ++line)
        canvas.fill(Rect{area.x, area.y + area.height * line / (gridLines + 1), area.width, 0.5},
                    Color::white(1, 0.1));
}
} // namespace

GraphCard::GraphCard(Container& container, std::string title, std::vector<Curve> curves)
    : Card(container, std::move(title)), curves_(std::move(curves)) {}

void GraphCard::show(double now, double top) {
    now_ = now;
    top_ = top;
    setNeedsDisplay();
}

void GraphCard::setBars(std::vector<double> bars) {
    bars_ = std::move(bars);
    setNeedsDisplay();
}

void GraphCard::drawContent(Canvas& canvas, Rect content) const {
    Rect graph = content;
    if (!bars_.empty() && content.height > 2 * barHeight) {
        graph.height -= barHeight + look::gap;
        drawBars(canvas, {content.x, graph.bottom() + look::gap, content.width, barHeight});
    }
    canvas.save();
    canvas.clip(graph, 6);
    canvas.fill(graph, look::well);
    drawGrid(canvas, graph);
    // The line's thickness stays within the well.
    for (const Curve& curve : curves_)
        drawGraph(canvas, *curve.history, now_, top_, graph.insetBy(0, 1), curve.color);
    canvas.restore();
}

void GraphCard::drawBars(Canvas& canvas, Rect area) const {
    const auto count = static_cast<double>(bars_.size());
    const double pitch = area.width / count;
    const double gap = std::min(widestGap, pitch * 0.25);
    const double radius = std::min(3.0, (pitch - gap) / 2);
    for (std::size_t index = 0; index < bars_.size(); ++index) {
        const Rect well{area.x + pitch * static_cast<double>(index) + gap / 2, area.y, pitch - gap,
                        area.height};
        canvas.fillRounded(well, radius, look::well);
        const double height = well.height * std::clamp(bars_[index], 0.0, 1.0);
        canvas.save();
        canvas.clip(well, radius);
        canvas.fill(Rect{well.x, well.bottom() - height, well.width, height}, curves_.front().color);
        canvas.restore();
    }
}

} // namespace systemplugin
