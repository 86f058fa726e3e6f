#include "ClockView.h"

#include "CityPickerPage.h"
#include "Palette.h"
#include "StopwatchPage.h"
#include "TimeUpPage.h"
#include "TimerRunPage.h"
#include "TimerSetupPage.h"
#include "WorldClockPage.h"

#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double margin = 10;
constexpr double tabsHeight = 44;

} // namespace

ClockView::ClockView(Host& host)
    : View(host),
      model_(host),
      tabs_(host, {"World", "Timer", "Stopwatch"}, [this](std::size_t i) { chooseTab(i); }),
      timerWatch_(host, [this] { return watchTimer(); }) {
    reload();
}

void ClockView::draw(Canvas& canvas, Rect bounds) {
    canvas.fillRounded(bounds, 20, palette::ground);
}

void ClockView::layout(Rect bounds) {
    tabs_.setFrame({bounds.x + margin, bounds.y + 5, bounds.width - 2 * margin, tabsHeight});
    layoutPage();
    setNeedsDisplay();
}

void ClockView::layoutPage() {
    const Rect bounds = this->bounds();
    if (isTimeUp_)
        return page_->layout(bounds);
    const double top = bounds.y + tabsHeight + 9;
    page_->layout({bounds.x + margin, top, bounds.width - 2 * margin, bounds.bottom() - margin / 2 - top});
}

void ClockView::reload() {
    isTimeUp_ = model_.timer.hasEnded(model_.wallTime());
    show(makePage());
    if (activity_.isActive())
        timerWatch_.start();
}

void ClockView::showCityPicker() {
    Navigation& navigation = *this;
    show(std::make_unique<CityPickerPage>(model_, navigation));
}

std::unique_ptr<Page> ClockView::makePage() {
    Navigation& navigation = *this;
    if (isTimeUp_)
        return std::make_unique<TimeUpPage>(model_, navigation);
    switch (model_.tab) {
    case Tab::Timer:
        if (model_.timer.state() == CountdownTimer::State::Idle)
            return std::make_unique<TimerSetupPage>(model_, navigation);
        return std::make_unique<TimerRunPage>(model_, navigation);
    case Tab::Stopwatch:
        return std::make_unique<StopwatchPage>(model_);
    case Tab::World:
        break;
    }
    return std::make_unique<WorldClockPage>(model_, navigation);
}

void ClockView::show(std::unique_ptr<Page> page) {
    page_ = std::move(page);
    tabs_.setHidden(isTimeUp_);
    tabs_.setChosen(static_cast<std::size_t>(model_.tab));
    layoutPage();
    page_->setActive(activity_.isActive());
}

void ClockView::chooseTab(std::size_t index) {
    model_.tab = static_cast<Tab>(index);
    model_.keepSettings();
    reload();
}

void ClockView::setOpen(bool open) {
    activity_.setOpen(open);
    applyActivity();
}

void ClockView::setPanelShown(bool shown) {
    activity_.setPanelShown(shown);
    applyActivity();
}

void ClockView::applyActivity() {
    const bool active = activity_.isActive();
    page_->setActive(active);
    if (active)
        timerWatch_.start();
    else
        timerWatch_.stop();
}

std::optional<double> ClockView::watchTimer() {
    const double wall = model_.wallTime();
    if (model_.timer.state() != CountdownTimer::State::Running)
        return std::nullopt;
    if (!model_.timer.hasEnded(wall))
        return model_.timer.end() - wall + 0.002;
    if (!isTimeUp_) {
        model_.tab = Tab::Timer;
        isTimeUp_ = true;
        show(makePage());
    }
    return std::nullopt;
}

VELA_PRINCIPAL_CLASS(ClockView)

} // namespace clockplugin
