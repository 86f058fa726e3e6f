#include "MeterCard.h"

#include "Look.h"

#include <algorithm>

namespace systemplugin {

using namespace vela::plugin;

namespace {
constexpr double thickness = 8;
} // namespace

void MeterCard::setPart(std::optional<double> part, Color color) {
    if (part == part_ && color == color_)
        return;
    part_ = part;
    color_ = color;
    setNeedsDisplay();
}

void MeterCard::drawContent(Canvas& canvas, Rect content) const {
    if (!part_)
        return;
    const Rect well{content.x, content.y + (content.height - thickness) / 2, content.width, thickness};
    canvas.fillRounded(well, thickness / 2, Color::white(1, 0.16));
    const double width = well.width * std::clamp(*part_, 0.0, 1.0);
    canvas.save();
    canvas.clip(well, thickness / 2);
    canvas.fill(Rect{well.x, well.y, width, well.height}, color_);
    canvas.restore();
}

} // namespace systemplugin
