#include "WorldClockRow.h"

#include "ClockFace.h"
#include "Palette.h"

#include <string>
#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double signWidth = 44;
constexpr double faceSize = 54;

void drawRemoveSign(Canvas& canvas, Rect rect, bool isPressed) {
    const Point center = rect.center();
    canvas.fillEllipse({center.x - 12, center.y - 12, 24, 24}, isPressed ? palette::softRed : colors::red);
    canvas.fillRounded({center.x - 6.5, center.y - 1.25, 13, 2.5}, 1.25, colors::primary);
}

} // namespace

WorldClockRow::WorldClockRow(Container& container, const ClockModel& model, const City& city,
                             std::function<void()> onRemove)
    : model_(model),
      city_(city),
      time_(model.timeIn(city)),
      area_(
          container, [this](Canvas& canvas, Rect bounds, bool isPressed) { draw(canvas, bounds, isPressed); },
          [onRemove = std::move(onRemove)](Point point) {
              if (point.x < signWidth + 12)
                  onRemove();
          }) {
    area_.setEnabled(false);
}

void WorldClockRow::setEditing(bool editing) {
    isEditing_ = editing;
    area_.setEnabled(editing);
    area_.setNeedsDisplay();
}

void WorldClockRow::update() {
    const std::optional<ZonedTime> time = model_.timeIn(city_);
    const auto minuteOf = [](const ZonedTime& t) { return std::pair(t.day, t.hour * 60 + t.minute); };
    const bool isSame =
        time.has_value() == time_.has_value() &&
        (!time || (minuteOf(*time) == minuteOf(*time_) && time->dayDifference == time_->dayDifference &&
                   time->offsetDifference == time_->offsetDifference));
    if (isSame)
        return;
    time_ = time;
    area_.setNeedsDisplay();
}

void WorldClockRow::draw(Canvas& canvas, Rect bounds, bool isPressed) const {
    canvas.fill({bounds.x + 4, bounds.bottom() - 1, bounds.width - 8, 1}, colors::separator);
    Rect rect = bounds.insetBy(4, 0);
    if (isEditing_) {
        drawRemoveSign(canvas, {rect.x - 4, rect.y, signWidth, rect.height}, isPressed);
        rect.x += signWidth - 4;
        rect.width -= signWidth - 4;
    }
    const double timeWidth = model_.faceStyle == FaceStyle::Analog ? faceSize : 104;
    const double textWidth = rect.width - timeWidth - 6;
    canvas.drawText(city_.name, {rect.x, rect.y + 10, textWidth, 26},
                    {.font = {.size = 19, .weight = Weight::Medium}}, colors::primary);
    canvas.drawText(time_ ? time_->relation() : "Unknown zone", {rect.x, rect.y + 36, textWidth, 20},
                    {.font = {.size = 13}}, palette::quiet);
    drawTime(canvas, {rect.right() - timeWidth, rect.y, timeWidth, rect.height});
}

void WorldClockRow::drawTime(Canvas& canvas, Rect rect) const {
    if (!time_)
        return canvas.drawText("\u2014", rect, {.font = {.size = 34}, .alignment = Alignment::Right},
                               palette::quiet);
    if (model_.faceStyle == FaceStyle::Analog)
        return drawClockFace(canvas, rect.insetBy(0, (rect.height - faceSize) / 2), *time_,
                             SecondHand::Without);
    const std::string half = time_->halfOfDay(model_.hourStyle);
    const double halfWidth = half.empty() ? 0 : 25;
    canvas.drawText(
        time_->clockText(model_.hourStyle), {rect.x, rect.y, rect.width - halfWidth, rect.height},
        {.font = {.size = half.empty() ? 36.0 : 30.0, .weight = Weight::Light, .monospacedDigits = true},
         .alignment = Alignment::Right},
        colors::primary);
    canvas.drawText(half, {rect.right() - halfWidth, rect.y + 7, halfWidth, rect.height - 7},
                    {.font = {.size = 13, .weight = Weight::Medium}, .alignment = Alignment::Right},
                    palette::quiet);
}

} // namespace clockplugin
