#include "NoteRow.h"

#include "Look.h"

namespace notesplugin {

using namespace vela::plugin;

namespace {
constexpr double sideMargin = 14;
constexpr TextStyle titleStyle{.font = {.size = 17, .weight = Weight::Semibold}};
constexpr TextStyle detailStyle{.font = {.size = 13}};
} // namespace

NoteRow::NoteRow(Container& container, NoteSummary summary, std::string date,
                 std::function<void(NoteId)> onOpen)
    : summary_(std::move(summary)),
      date_(std::move(date)),
      onOpen_(std::move(onOpen)),
      area_(container.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void NoteRow::draw(Canvas& canvas, Rect bounds) const {
    canvas.fillRounded(bounds, look::cornerRadius, pressed_ ? look::pressedCard : look::card);
    const Rect line{sideMargin, 10, bounds.width - 2 * sideMargin, 24};
    const bool untitled = summary_.title.empty();
    canvas.drawText(untitled ? "Empty note" : summary_.title, line, titleStyle,
                    untitled ? look::secondaryText : colors::primary);
    const std::string detail = summary_.preview.empty() ? date_ : date_ + "  ·  " + summary_.preview;
    canvas.drawText(detail, {line.x, 35, line.width, 18}, detailStyle, look::secondaryText);
}

void NoteRow::touched(const Touch& touch) {
    const Rect frame = area_->frame();
    const bool inside = Rect{0, 0, frame.width, frame.height}.contains(touch.point);
    const bool chosen = touch.phase == TouchPhase::Ended && pressed_ && inside;
    setPressed(inside &&
               (touch.phase == TouchPhase::Began || (touch.phase == TouchPhase::Moved && pressed_)));
    if (!chosen)
        return;
    const auto open = onOpen_; // opening may end this row
    open(summary_.id);
}

void NoteRow::setPressed(bool pressed) {
    if (pressed == pressed_)
        return;
    pressed_ = pressed;
    area_->setNeedsDisplay();
}

} // namespace notesplugin
