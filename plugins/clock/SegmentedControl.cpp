#include "SegmentedControl.h"

#include <algorithm>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double drawnHeight = 36; // of an area that is higher, for the finger
constexpr double inset = 2;
constexpr double slop = 20;

} // namespace

SegmentedControl::SegmentedControl(Container& container, std::vector<std::string> titles,
                                   std::function<void(std::size_t)> onChoose)
    : titles_(std::move(titles)), onChoose_(std::move(onChoose)), area_(container.addDrawnArea()) {
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

void SegmentedControl::draw(Canvas& canvas, Rect bounds) const {
    const double height = std::min(drawnHeight, bounds.height);
    const Rect track{bounds.x, bounds.y + (bounds.height - height) / 2, bounds.width, height};
    canvas.fillRounded(track, height / 2, colors::fill);
    const double width = track.width / static_cast<double>(titles_.size());
    for (std::size_t i = 0; i < titles_.size(); ++i) {
        const Rect segment{track.x + width * static_cast<double>(i), track.y, width, height};
        const Rect shape = segment.insetBy(inset, inset);
        if (i == chosen_)
            canvas.fillRounded(shape, shape.height / 2, Color::white(1, pressed_ == i ? 0.42 : 0.3));
        else if (pressed_ == i)
            canvas.fillRounded(shape, shape.height / 2, colors::fill);
        canvas.drawText(titles_[i], segment,
                        {.font = {.size = 15, .weight = i == chosen_ ? Weight::Semibold : Weight::Medium},
                         .alignment = Alignment::Center},
                        i == chosen_ ? colors::primary : Color::white(1, 0.8));
    }
}

std::optional<std::size_t> SegmentedControl::segmentAt(Point point) const {
    const Rect frame = area_->frame();
    if (!Rect{0, 0, frame.width, frame.height}.insetBy(0, -slop).contains(point))
        return std::nullopt;
    const auto segment =
        static_cast<std::size_t>(point.x / frame.width * static_cast<double>(titles_.size()));
    return std::min(segment, titles_.size() - 1);
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
