#include "DisplayArea.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace calculatorplugin {

using namespace vela::plugin;

namespace {

constexpr double swipeDistance = 18;
constexpr double margin = 10;
constexpr double topLineHeight = 22;
/// Less high than this, the display has no room for a second line.
constexpr double leastTwoLineHeight = 52;
constexpr double greatestFontSize = 68;
constexpr double leastFontSize = 15;

TextStyle numberStyle(double size) {
    return {.font = {.size = size, .weight = Weight::Light},
            .alignment = Alignment::Right,
            .verticalAlignment = VerticalAlignment::Bottom};
}

} // namespace

DisplayArea::DisplayArea(Host& host, std::function<void()> onSwipe)
    : host_(host), onSwipe_(std::move(onSwipe)), area_(host.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void DisplayArea::setFrame(Rect frame) {
    area_->setFrame(frame);
    area_->setNeedsDisplay();
}

void DisplayArea::show(const Calculator& calculator) {
    number_ = calculator.display();
    calculation_ = calculator.calculation();
    hasMemory_ = calculator.hasMemory();
    isError_ = calculator.state().isError;
    area_->setNeedsDisplay();
}

double DisplayArea::fontSizeFitting(Size size) const {
    const double greatest = std::clamp(size.height * 0.8, leastFontSize, greatestFontSize);
    const double width = host_.measure(number_, numberStyle(greatest)).width;
    return width <= size.width ? greatest : std::max(leastFontSize, greatest * size.width / width * 0.99);
}

void DisplayArea::draw(Canvas& canvas, Rect bounds) const {
    Rect area = bounds.insetBy(margin, 2);
    if (area.height >= leastTwoLineHeight) {
        drawTopLine(canvas, {area.x, area.y + 2, area.width, topLineHeight});
        area.y += topLineHeight;
        area.height -= topLineHeight;
    } else if (hasMemory_) {
        canvas.drawText("M", {area.x, area.y, 14, area.height}, {.font = {.size = 13}}, colors::secondary);
        area.x += 16;
        area.width -= 16;
    }
    canvas.drawText(number_, area, numberStyle(fontSizeFitting(area.size())),
                    isError_ ? colors::orange : colors::primary);
}

void DisplayArea::drawTopLine(Canvas& canvas, Rect line) const {
    if (hasMemory_)
        canvas.drawText("M", line, {.font = {.size = 14, .weight = Weight::Semibold}}, colors::orange);
    canvas.drawText(calculation_, {line.x + 20, line.y, line.width - 20, line.height},
                    {.font = {.size = 15}, .alignment = Alignment::Right}, Color::white(1, 0.75));
}

void DisplayArea::touched(const Touch& touch) {
    if (touch.phase == TouchPhase::Began && !swipe_)
        swipe_ = Swipe{touch.finger, touch.point, false};
    if (!swipe_ || swipe_->finger != touch.finger)
        return;
    if (touch.phase == TouchPhase::Ended || touch.phase == TouchPhase::Cancelled) {
        swipe_.reset();
        return;
    }
    const double across = std::abs(touch.point.x - swipe_->start.x);
    const double along = std::abs(touch.point.y - swipe_->start.y);
    if (swipe_->isDone || across < swipeDistance || across < 2 * along)
        return;
    swipe_->isDone = true;
    onSwipe_();
}

} // namespace calculatorplugin
