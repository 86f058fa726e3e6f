#include "WorldClockPage.h"

#include "ClockFace.h"
#include "Palette.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double headerHeight = 84;
constexpr double flatHeight = 48; // of the header and of the buttons, where they share a row

/// Rather than early by the last bit, and still within the same second.
constexpr double aLittleLate = 0.005;

std::string titleOfFaces(FaceStyle style) {
    return style == FaceStyle::Analog ? "Digital" : "Analog";
}

} // namespace

WorldClockPage::WorldClockPage(ClockModel& model, Navigation& navigation)
    : model_(model),
      local_(model.localTime()),
      header_(
          model.host(),
          [this](Canvas& canvas, Rect bounds, bool pressed) { drawHeader(canvas, bounds, pressed); },
          [this](Point) { toggleHours(); }),
      edit_(model.host(), "Edit", Action::Neutral, [this] { toggleEditing(); }),
      faces_(model.host(), titleOfFaces(model.faceStyle), Action::Neutral, [this] { toggleFaces(); }),
      add_(model.host(), "Add", Action::Neutral, [&navigation] { navigation.showCityPicker(); }),
      list_(model.host().addScrollArea()),
      ticker_(model.host(), [this] { return update(); }) {
    makeRows();
}

void WorldClockPage::makeRows() {
    rows_.clear();
    for (const City* city : model_.cities.cities()) {
        rows_.push_back(std::make_unique<WorldClockRow>(list_->content(), model_, *city,
                                                        [this, city] { removeCity(*city); }));
        rows_.back()->setEditing(isEditing_);
    }
    edit_.setEnabled(!rows_.empty());
}

void WorldClockPage::layout(Rect area) {
    const bool wide = isWide(area);
    const double rowOfButtons = wide ? area.y : area.bottom() - flatHeight;
    const double header = wide ? area.width * 0.34 : area.width;
    const double left = wide ? area.x + header + 6 : area.x;
    const double width = (area.right() - left) / 3;
    header_.setFrame({area.x, area.y, header, wide ? flatHeight : headerHeight});
    edit_.setFrame({left, rowOfButtons, width, flatHeight});
    faces_.setFrame({left + width, rowOfButtons, width, flatHeight});
    add_.setFrame({left + 2 * width, rowOfButtons, width, flatHeight});
    const double top = header_.frame().bottom() + 2;
    list_->setFrame(
        {area.x, top, area.width, std::max(0.0, (wide ? area.bottom() : rowOfButtons - 4) - top)});
    placeRows();
}

void WorldClockPage::placeRows() {
    const double width = list_->frame().width;
    double top = 0;
    for (const auto& row : rows_) {
        row->setFrame({0, top, width, WorldClockRow::height});
        top += WorldClockRow::height;
    }
    list_->setContentSize({width, top});
}

void WorldClockPage::setActive(bool active) {
    if (!active)
        return ticker_.stop();
    updateRows();
    ticker_.start();
}

std::optional<double> WorldClockPage::update() {
    const int shownMinute = local_.minute;
    local_ = model_.localTime();
    header_.setNeedsDisplay();
    // All places change their minute at the same moment.
    if (local_.minute != shownMinute)
        updateRows();
    const double period = isHeaderFlat() ? 60 : 1;
    const double wall = model_.wallTime();
    return (std::floor(wall / period) + 1) * period - wall + aLittleLate;
}

void WorldClockPage::updateRows() {
    for (const auto& row : rows_)
        row->update();
}

bool WorldClockPage::isHeaderFlat() const {
    return header_.frame().height < headerHeight;
}

void WorldClockPage::drawHeader(Canvas& canvas, Rect bounds, bool isPressed) const {
    if (isPressed)
        canvas.fillRounded(bounds, 14, colors::fill);
    const Rect rect = bounds.insetBy(4, 2);
    if (isHeaderFlat() || model_.faceStyle == FaceStyle::Digital)
        return drawHeaderText(canvas, rect);
    const double size = rect.height;
    drawClockFace(canvas, {rect.right() - size, rect.y, size, size}, local_, SecondHand::With);
    drawHeaderText(canvas, {rect.x, rect.y, rect.width - size - 6, rect.height});
}

void WorldClockPage::drawHeaderText(Canvas& canvas, Rect rect) const {
    const bool flat = isHeaderFlat();
    const std::string half = local_.halfOfDay(model_.hourStyle);
    std::string text = local_.clockText(model_.hourStyle);
    if (!flat && model_.faceStyle == FaceStyle::Digital)
        text += (local_.second < 10 ? ":0" : ":") + std::to_string(local_.second);
    TextStyle style{.font = {.size = flat ? 28.0 : 48.0, .weight = Weight::Light, .monospacedDigits = true}};
    if (!half.empty())
        style.font.size *= 0.84;
    const double textHeight = flat ? rect.height : rect.height - 24;
    const double width = model_.host().measure(text, style).width;
    canvas.drawText(text, {rect.x, rect.y, rect.width, textHeight}, style, colors::primary);
    canvas.drawText(half, {rect.x + width + 4, rect.y + textHeight / 2 - 2, 30, textHeight / 2},
                    {.font = {.size = 14, .weight = Weight::Medium}}, palette::quiet);
    if (!flat)
        canvas.drawText(local_.date(), {rect.x, rect.y + textHeight, rect.width, 22},
                        {.font = {.size = 15, .weight = Weight::Medium}}, palette::quiet);
}

void WorldClockPage::removeCity(const City& city) {
    model_.cities.remove(city);
    model_.keepCities();
    if (model_.cities.cities().empty()) {
        isEditing_ = false;
        edit_.setTitle("Edit", Action::Neutral);
    }
    makeRows();
    placeRows();
}

void WorldClockPage::toggleEditing() {
    isEditing_ = !isEditing_;
    edit_.setTitle(isEditing_ ? "Done" : "Edit", Action::Neutral);
    for (const auto& row : rows_)
        row->setEditing(isEditing_);
}

void WorldClockPage::toggleFaces() {
    model_.faceStyle = model_.faceStyle == FaceStyle::Analog ? FaceStyle::Digital : FaceStyle::Analog;
    faces_.setTitle(titleOfFaces(model_.faceStyle), Action::Neutral);
    redrawAll();
}

void WorldClockPage::toggleHours() {
    model_.hourStyle = model_.hourStyle == HourStyle::Twelve ? HourStyle::TwentyFour : HourStyle::Twelve;
    redrawAll();
}

void WorldClockPage::redrawAll() {
    model_.keepSettings();
    header_.setNeedsDisplay();
    for (const auto& row : rows_)
        row->setNeedsDisplay();
}

} // namespace clockplugin
