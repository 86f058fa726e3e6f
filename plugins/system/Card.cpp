#include "Card.h"

#include "Look.h"

#include <algorithm>

namespace systemplugin {

using namespace vela::plugin;

namespace {
constexpr TextStyle titleStyle{.font = {.size = 15, .weight = Weight::Semibold}};
constexpr TextStyle valueStyle{.font = {.size = 14, .monospacedDigits = true}, .alignment = Alignment::Right};
constexpr double titleWidth = 92;
} // namespace

Card::Card(Container& container, std::string title)
    : title_(std::move(title)), area_(container.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
}

void Card::setValue(std::string value) {
    if (value == value_)
        return;
    value_ = std::move(value);
    area_->setNeedsDisplay();
}

void Card::draw(Canvas& canvas, Rect bounds) const {
    canvas.fillRounded(bounds, look::cornerRadius, look::card);
    const double width = std::max(bounds.width - 2 * look::inset, 0.0);
    canvas.drawText(title_, {look::inset, 2, titleWidth, look::titleHeight}, titleStyle, colors::primary);
    canvas.drawText(value_,
                    {look::inset + titleWidth, 2, std::max(width - titleWidth, 0.0), look::titleHeight},
                    valueStyle, look::secondaryText);
    const double height = bounds.height - look::titleHeight - look::inset;
    if (height > 0 && width > 0)
        drawContent(canvas, {look::inset, look::titleHeight, width, height});
}

} // namespace systemplugin
