#include "CityPickerPage.h"

#include "Palette.h"

#include <algorithm>
#include <string>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double fieldHeight = 44;
constexpr double cancelWidth = 84;
constexpr double rowHeight = 50;

} // namespace

CityPickerPage::CityPickerPage(ClockModel& model, Navigation& navigation)
    : model_(model),
      navigation_(navigation),
      fieldGround_(model.host().addDrawnArea()),
      field_(model.host().addTextField()),
      cancel_(model.host(), "Cancel", Action::Neutral, [&navigation] { navigation.reload(); }),
      list_(model.host().addScrollArea()),
      nothingFound_(model.host().addLabel("No city found")) {
    fieldGround_->onDraw([](Canvas& canvas, Rect bounds) {
        canvas.fillRounded(bounds.insetBy(0, 2), bounds.height / 2, colors::fill);
    });
    field_->setPlaceholder("City or country");
    field_->setFont({.size = 17});
    field_->setColor(colors::primary);
    field_->onChange([this] { makeRows(); });
    nothingFound_->setFont({.size = 17});
    nothingFound_->setColor(palette::quiet);
    nothingFound_->setAlignment(Alignment::Center);
    makeRows();
}

void CityPickerPage::makeRows() {
    rows_.clear();
    for (const City* city : citiesMatching(field_->text()))
        rows_.push_back(std::make_unique<PressArea>(
            list_->content(),
            [this, city](Canvas& canvas, Rect bounds, bool isPressed) {
                drawRow(canvas, bounds, *city, isPressed);
            },
            [this, city](Point) { choose(*city); }));
    nothingFound_->setHidden(!rows_.empty());
    list_->setOffset({0, 0});
    placeRows();
}

void CityPickerPage::layout(Rect area) {
    fieldGround_->setFrame({area.x, area.y, area.width - cancelWidth - 4, fieldHeight});
    field_->setFrame({area.x + 14, area.y, area.width - cancelWidth - 32, fieldHeight});
    cancel_.setFrame({area.right() - cancelWidth, area.y, cancelWidth, fieldHeight});
    const double top = area.y + fieldHeight + 6;
    list_->setFrame({area.x, top, area.width, std::max(0.0, area.bottom() - top)});
    nothingFound_->setFrame({area.x, top + 10, area.width, 30});
    placeRows();
}

void CityPickerPage::placeRows() {
    const double width = list_->frame().width;
    double top = 0;
    for (const auto& row : rows_) {
        row->setFrame({0, top, width, rowHeight});
        top += rowHeight;
    }
    list_->setContentSize({width, top});
}

void CityPickerPage::drawRow(Canvas& canvas, Rect bounds, const City& city, bool isPressed) const {
    if (isPressed)
        canvas.fillRounded(bounds.insetBy(0, 2), 12, colors::pressedFill);
    canvas.fill({bounds.x + 4, bounds.bottom() - 1, bounds.width - 8, 1}, colors::separator);
    const Rect rect = bounds.insetBy(8, 0);
    const TextStyle nameStyle{.font = {.size = 17}};
    const double nameWidth =
        std::min(model_.host().measure(city.name, nameStyle).width + 10, rect.width - 60);
    canvas.drawText(city.name, {rect.x, rect.y, nameWidth, rect.height}, nameStyle, colors::primary);
    const bool isChosen = model_.cities.contains(city);
    canvas.drawText(isChosen ? "\u2713" : city.country,
                    {rect.x + nameWidth, rect.y, rect.width - nameWidth, rect.height},
                    {.font = {.size = isChosen ? 18.0 : 13.0}, .alignment = Alignment::Right},
                    isChosen ? colors::orange : palette::quiet);
}

void CityPickerPage::choose(const City& city) {
    if (model_.cities.add(city))
        model_.keepCities();
    navigation_.reload();
}

CityPickerPage::~CityPickerPage() {
    setActive(false);
}

void CityPickerPage::setActive(bool active) {
    if (!active && field_->isEditing())
        field_->setEditing(false);
}

} // namespace clockplugin
