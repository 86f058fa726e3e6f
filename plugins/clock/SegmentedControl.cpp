#include "SegmentedControl.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double drawnHeight = 36; // of an area that is higher, for the finger
constexpr double inset = 2;
constexpr double slop = 20;

enum class Chosen { No, Yes };

TextStyle titleStyle(Chosen chosen) {
    return {.font = {.size = 15, .weight = chosen == Chosen::Yes ? Weight::Semibold : Weight::Medium},
            .alignment = Alignment::Center};
}

} // namespace

SegmentedControl::SegmentedControl(Host& host, std::vector<std::string> titles,
                                   std::function<void(std::size_t)> onChoose)
    : titles_(std::move(titles)), onChoose_(std::move(onChoose)), area_(host.addDrawnArea()) {
    for (const std::string& title : titles_)
        titleWidths_.push_back(host.measure(title, titleStyle(Chosen::Yes)).width);
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void SegmentedControl::setFrame(Rect frame) {
    area_->setFrame(frame);
    area_->setNeedsDisplay();
}

void SegmentedControl::setChosen(std::size_t index) {
    chosen_ = index;
    area_->setNeedsDisplay();
}

double SegmentedControl::edge(std::size_t index, double width) const {
    const auto middle = titleWidths_.begin() + static_cast<std::ptrdiff_t>(index);
    const double before = std::accumulate(titleWidths_.begin(), middle, 0.0);
    const double spare = width - std::accumulate(middle, titleWidths_.end(), before);
    return before + spare * static_cast<double>(index) / static_cast<double>(titles_.size());
}

void SegmentedControl::draw(Canvas& canvas, Rect bounds) const {
    const double height = std::min(drawnHeight, bounds.height);
    const Rect track{bounds.x, bounds.y + (bounds.height - height) / 2, bounds.width, height};
    canvas.fillRounded(track, height / 2, colors::fill);
    for (std::size_t i = 0; i < titles_.size(); ++i) {
        const double left = edge(i, track.width);
        drawSegment(canvas, {track.x + left, track.y, edge(i + 1, track.width) - left, height}, i);
    }
}

void SegmentedControl::drawSegment(Canvas& canvas, Rect segment, std::size_t index) const {
    const bool isChosen = index == chosen_;
    const bool isPressed = index == pressed_;
    const Rect shape = segment.insetBy(inset, inset);
    if (isChosen)
        canvas.fillRounded(shape, shape.height / 2, Color::white(1, isPressed ? 0.42 : 0.3));
    else if (isPressed)
        canvas.fillRounded(shape, shape.height / 2, colors::fill);
    canvas.drawText(titles_[index], segment, titleStyle(isChosen ? Chosen::Yes : Chosen::No),
                    isChosen ? colors::primary : Color::white(1, 0.8));
}

std::optional<std::size_t> SegmentedControl::segmentAt(Point point) const {
    const Rect frame = area_->frame();
    if (!Rect{0, 0, frame.width, frame.height}.insetBy(0, -slop).contains(point))
        return std::nullopt;
    for (std::size_t i = 0; i + 1 < titles_.size(); ++i)
        if (point.x < edge(i + 1, frame.width))
            return i;
    return titles_.size() - 1;
}

void SegmentedControl::touched(const Touch& touch) {
    if (touch.phase == TouchPhase::Began && !finger_)
        finger_ = touch.finger;
    if (finger_ != touch.finger)
        return;
    const bool isDown = touch.phase == TouchPhase::Began || touch.phase == TouchPhase::Moved;
    const std::optional<std::size_t> segment = segmentAt(touch.point);
    const std::optional<std::size_t> pressed = isDown ? segment : std::nullopt;
    if (pressed != pressed_)
        area_->setNeedsDisplay();
    pressed_ = pressed;
    if (isDown)
        return;
    finger_.reset();
    if (touch.phase == TouchPhase::Ended && segment && *segment != chosen_) {
        setChosen(*segment);
        onChoose_(*segment);
    }
}

} // namespace clockplugin
