#include "MonthView.h"

#include "Look.h"

#include <cstdlib>

namespace calendarplugin {

using namespace vela::plugin;

namespace {
constexpr double frameTime = 1.0 / 60; // seconds

int monthsBetween(Month from, Month to) {
    return static_cast<int>((to - from).count());
}
} // namespace

MonthView::MonthView(Host& host, const DayNotes& notes, Actions actions)
    : host_(host),
      notes_(notes),
      actions_(std::move(actions)),
      content_{std::chrono::year(1970) / 1, WeekStart::Monday, {}, {}},
      area_(host.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void MonthView::show(const Content& content) {
    if (content == content_)
        return;
    const int months = monthsBetween(content_.month, content.month);
    const double before = offset();
    content_ = content;
    if (std::abs(months) == 1)
        slide(before + months * area_->frame().width);
    else if (months != 0)
        rest();
    area_->setNeedsDisplay();
}

void MonthView::rest() {
    if (offset() == 0 && !ticks_ && !swipe_.pressedPoint())
        return;
    ticks_.reset();
    slide_.stop();
    swipe_.cancel();
    area_->setNeedsDisplay();
}

void MonthView::slide(double distance) {
    slide_.begin(distance, host_.now());
    if (ticks_)
        return;
    ticks_ = host_.startTimer(frameTime, true, [this] {
        area_->setNeedsDisplay();
        if (!slide_.isRunning(host_.now()))
            ticks_.reset();
    });
}

double MonthView::offset() const {
    return swipe_.isDragging() ? swipe_.offset() : slide_.offset(host_.now());
}

void MonthView::draw(Canvas& canvas, Rect bounds) const {
    canvas.fillRounded(bounds, look::cornerRadius, look::card);
    drawWeekdayHeads(canvas, MonthGeometry(bounds.size()), content_.start);
    canvas.save();
    canvas.clip(bounds, look::cornerRadius);
    const double x = offset();
    drawPage(canvas, bounds, 0, x);
    if (x != 0)
        drawPage(canvas, bounds, x > 0 ? -1 : 1, x > 0 ? x - bounds.width : x + bounds.width);
    canvas.restore();
}

void MonthView::drawPage(Canvas& canvas, Rect bounds, int months, double x) const {
    const Month month = monthAfter(content_.month, months);
    if (months != 0 && month == content_.month)
        return; // time's end
    const MonthGeometry geometry(bounds.size());
    std::optional<Date> pressed;
    if (const auto point = swipe_.pressedPoint())
        pressed = dateAt(*point);
    canvas.save();
    canvas.translate(x, 0);
    drawMonthPage(canvas, geometry, monthGrid(month, content_.start),
                  {content_.today, content_.selected, pressed, &notes_});
    canvas.restore();
}

std::optional<Date> MonthView::dateAt(Point point) const {
    const auto cell = MonthGeometry(area_->frame().size()).cellAt(point);
    if (!cell)
        return std::nullopt;
    const MonthGrid grid = monthGrid(content_.month, content_.start);
    return grid.weeks[static_cast<std::size_t>(cell->row)].days[static_cast<std::size_t>(cell->column)];
}

void MonthView::touched(const Touch& touch) {
    const bool wasDragging = swipe_.isDragging();
    const double before = swipe_.offset();
    if (touch.phase == TouchPhase::Began)
        slide_.stop();
    const auto result = swipe_.handle(touch, area_->frame().width);
    area_->setNeedsDisplay();
    if (wasDragging && !swipe_.isDragging())
        slide(before); // back, unless the page turns, which goes on from there
    if (result.outcome == MonthSwipe::Outcome::Tap) {
        if (const auto date = dateAt(result.point))
            actions_.onSelect(*date);
    } else if (result.outcome == MonthSwipe::Outcome::Months) {
        actions_.onTurn(result.months);
    }
}

} // namespace calendarplugin
