#include "TimeUpPage.h"

#include "DurationText.h"

#include <algorithm>
#include <string>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double buttonHeight = 60;
constexpr double pulseSeconds = 0.5;
constexpr Color brightGround{0.98, 0.45, 0.02, 0.97};
constexpr Color darkGround{0.72, 0.16, 0.05, 0.97};

std::string sinceText(double seconds) {
    const int whole = static_cast<int>(std::clamp(seconds, 0.0, 1e8));
    if (whole < 60)
        return "just now";
    return spokenDuration(whole < 3600 ? whole / 60 * 60 : whole / 3600 * 3600) + " ago";
}

} // namespace

TimeUpPage::TimeUpPage(ClockModel& model, Navigation& navigation)
    : model_(model),
      navigation_(navigation),
      ground_(model.host().addDrawnArea()),
      again_(model.host(), "Again", Action::Neutral, [this] { again(); }),
      dismiss_(model.host(), "Done", Action::Neutral, [this] { dismiss(); }),
      ticker_(model.host(), [this] { return pulse(); }) {
    ground_->onDraw([this](Canvas& canvas, Rect bounds) { draw(canvas, bounds); });
    ground_->onTouch([](const Touch&) {}); // nothing beneath is to be touched
}

void TimeUpPage::layout(Rect area) {
    ground_->setFrame(area);
    ground_->setNeedsDisplay();
    const Rect inner = area.insetBy(16, 14);
    const double width = inner.width / 2;
    const double top = inner.bottom() - buttonHeight;
    again_.setFrame({inner.x, top, width - 4, buttonHeight});
    dismiss_.setFrame({inner.x + width + 4, top, width - 4, buttonHeight});
}

void TimeUpPage::setActive(bool active) {
    if (active)
        ticker_.start();
    else
        ticker_.stop();
}

std::optional<double> TimeUpPage::pulse() {
    isBright_ = !isBright_;
    ground_->setNeedsDisplay();
    return pulseSeconds;
}

void TimeUpPage::draw(Canvas& canvas, Rect bounds) const {
    canvas.fillRounded(bounds, 20, isBright_ ? brightGround : darkGround);
    const double middle = (bounds.height - buttonHeight - 14) / 2;
    const double left = bounds.x + 12;
    const double width = bounds.width - 24;
    canvas.drawText("Time\u2019s up", {left, middle - 50, width, 56},
                    {.font = {.size = 46, .weight = Weight::Bold}, .alignment = Alignment::Center},
                    colors::primary);
    canvas.drawText(spokenDuration(model_.timer.duration()), {left, middle + 8, width, 26},
                    {.font = {.size = 19, .weight = Weight::Medium}, .alignment = Alignment::Center},
                    colors::primary);
    canvas.drawText(sinceText(model_.wallTime() - model_.timer.end()), {left, middle + 34, width, 24},
                    {.font = {.size = 16}, .alignment = Alignment::Center}, Color::white(1, 0.9));
}

void TimeUpPage::again() {
    model_.timer.restart(model_.wallTime());
    model_.keepTimer();
    navigation_.reload();
}

void TimeUpPage::dismiss() {
    model_.timer.cancel();
    model_.keepTimer();
    navigation_.reload();
}

} // namespace clockplugin
