#include "LapList.h"

#include "DurationText.h"
#include "Palette.h"

#include <algorithm>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double rowHeight = 40;

} // namespace

LapList::LapList(Host& host) : list_(host.addScrollArea()) {}

void LapList::setFrame(Rect frame) {
    list_->setFrame(frame);
    place();
}

void LapList::setCount(std::size_t count) {
    if (count == rows_.size())
        return;
    rows_.resize(std::min(count, rows_.size()));
    while (rows_.size() < count) {
        auto row = std::make_unique<Row>();
        row->area = list_->content().addDrawnArea();
        row->area->onDraw(
            [row = row.get()](Canvas& canvas, Rect bounds) { draw(canvas, bounds, row->content); });
        rows_.push_back(std::move(row));
    }
    place();
}

void LapList::place() {
    const double width = list_->frame().width;
    double top = 0;
    for (const auto& row : rows_) {
        row->area->setFrame({0, top, width, rowHeight});
        top += rowHeight;
    }
    list_->setContentSize({width, top});
}

LapList::Content LapList::contentOf(const Stopwatch& stopwatch, std::size_t lap, double now) {
    if (lap == stopwatch.laps().size())
        return {lap + 1, stopwatchText(stopwatch.currentLap(now)), Mark::None};
    Mark mark = Mark::None;
    if (stopwatch.fastestLap() == lap)
        mark = Mark::Fastest;
    else if (stopwatch.slowestLap() == lap)
        mark = Mark::Slowest;
    return {lap + 1, stopwatchText(stopwatch.laps()[lap]), mark};
}

void LapList::show(const Stopwatch& stopwatch, double now) {
    const std::size_t count = stopwatch.isReset() ? 0 : stopwatch.laps().size() + 1;
    setCount(count);
    for (std::size_t i = 0; i < count; ++i) {
        Content content = contentOf(stopwatch, count - 1 - i, now);
        if (content == rows_[i]->content)
            continue;
        rows_[i]->content = std::move(content);
        rows_[i]->area->setNeedsDisplay();
    }
}

void LapList::draw(Canvas& canvas, Rect bounds, const Content& content) {
    canvas.fill({bounds.x + 4, bounds.bottom() - 1, bounds.width - 8, 1}, colors::separator);
    const Rect rect = bounds.insetBy(6, 0);
    Color color = colors::primary;
    std::string title = "Lap " + std::to_string(content.number);
    if (content.mark == Mark::Fastest) {
        color = palette::softGreen;
        title += "  fastest";
    } else if (content.mark == Mark::Slowest) {
        color = palette::softRed;
        title += "  slowest";
    }
    canvas.drawText(title, rect, {.font = {.size = 16}}, color);
    canvas.drawText(content.time, rect,
                    {.font = {.size = 17, .monospacedDigits = true}, .alignment = Alignment::Right}, color);
}

} // namespace clockplugin
