#include "TimerSetupPage.h"

#include <algorithm>
#include <array>
#include <string>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr std::array presetMinutes{3, 5, 10, 30};
constexpr double buttonHeight = 56;
constexpr double presetHeight = 48;
constexpr double greatestPickerHeight = 220;

} // namespace

TimerSetupPage::TimerSetupPage(ClockModel& model, Navigation& navigation)
    : model_(model),
      navigation_(navigation),
      picker_(model.host(), [this] { changed(); }),
      start_(model.host(), "Start", Action::Go, [this] { start(); }) {
    for (const int minutes : presetMinutes)
        presets_.push_back(std::make_unique<ActionButton>(model.host(), std::to_string(minutes) + " m",
                                                          Action::Neutral,
                                                          [this, minutes] { choosePreset(minutes); }));
    picker_.setSeconds(model.timer.duration());
}

void TimerSetupPage::layout(Rect area) {
    if (isWide(area))
        layoutWide(area);
    else
        layoutTall(area);
}

void TimerSetupPage::layoutWide(Rect area) {
    const double pickerWidth = std::min(area.width * 0.66, 360.0);
    picker_.setFrame({area.x, area.y, pickerWidth, std::min(area.height, greatestPickerHeight)});
    const double left = area.x + pickerWidth + 8;
    const double width = area.right() - left;
    // As many presets as there is room for above the start button.
    const double bottom = area.y + std::min(area.height, greatestPickerHeight);
    start_.setFrame({left, bottom - buttonHeight, width, buttonHeight});
    double top = area.y;
    for (const auto& preset : presets_) {
        const bool fits = top + presetHeight <= bottom - buttonHeight;
        preset->setFrame(fits ? Rect{left, top, width, presetHeight} : Rect{});
        top += presetHeight + 3;
    }
}

void TimerSetupPage::layoutTall(Rect area) {
    const double picker = std::min(greatestPickerHeight, area.height - buttonHeight - presetHeight - 24);
    const double spare = std::max(0.0, area.height - picker - presetHeight - buttonHeight);
    double top = area.y + spare * 0.2;
    picker_.setFrame({area.x, top, area.width, picker});
    top += picker + spare * 0.2;
    const double width = area.width / static_cast<double>(presets_.size());
    for (std::size_t i = 0; i < presets_.size(); ++i)
        presets_[i]->setFrame({area.x + width * static_cast<double>(i), top, width, presetHeight});
    top += presetHeight + spare * 0.2;
    start_.setFrame({area.x, top, area.width, buttonHeight});
}

void TimerSetupPage::setActive(bool active) {
    if (active)
        changed();
    else
        picker_.rest();
}

void TimerSetupPage::changed() {
    const int seconds = picker_.seconds();
    start_.setEnabled(seconds > 0);
    if (seconds == 0 || seconds == model_.timer.duration())
        return;
    model_.timer.setDuration(seconds);
    model_.keepTimer();
}

void TimerSetupPage::choosePreset(int minutes) {
    picker_.setSeconds(minutes * 60);
    changed();
}

void TimerSetupPage::start() {
    model_.timer.setDuration(picker_.seconds());
    model_.timer.start(model_.wallTime());
    model_.keepTimer();
    navigation_.reload();
}

} // namespace clockplugin
