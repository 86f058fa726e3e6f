#include "TimerRunPage.h"

#include "DurationText.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double buttonHeight = 56;
constexpr double mostFramesASecond = 30;

std::string titleOfPause(bool isPaused) {
    return isPaused ? "Resume" : "Pause";
}
Action actionOfPause(bool isPaused) {
    return isPaused ? Action::Go : Action::Attention;
}

} // namespace

TimerRunPage::TimerRunPage(ClockModel& model, Navigation& navigation)
    : model_(model),
      navigation_(navigation),
      ring_(model.host()),
      cancel_(model.host(), "Cancel", Action::Neutral, [this] { cancel(); }),
      pause_(model.host(), titleOfPause(isPaused()), actionOfPause(isPaused()), [this] { pauseOrResume(); }),
      ticker_(model.host(), [this] { return update(); }) {}

void TimerRunPage::layout(Rect area) {
    if (isWide(area)) {
        const double ring = std::min(area.height, area.width * 0.6);
        ring_.setFrame({area.x, area.y, ring, ring});
        const double left = area.x + ring + 12;
        const double middle = area.y + ring / 2;
        pause_.setFrame({left, middle - buttonHeight - 4, area.right() - left, buttonHeight});
        cancel_.setFrame({left, middle + 4, area.right() - left, buttonHeight});
    } else {
        const double ring = std::min(area.width - 8, area.height - buttonHeight - 16);
        const double spare = std::max(0.0, area.height - ring - buttonHeight);
        ring_.setFrame({area.center().x - ring / 2, area.y + spare * 0.3, ring, ring});
        const double top = area.y + ring + spare * 0.6;
        const double width = area.width / 2;
        cancel_.setFrame({area.x, top, width - 3, buttonHeight});
        pause_.setFrame({area.x + width + 3, top, width - 3, buttonHeight});
    }
    update();
}

void TimerRunPage::setActive(bool active) {
    isActive_ = active;
    if (active)
        ticker_.start();
    else
        ticker_.stop();
}

std::optional<double> TimerRunPage::update() {
    const CountdownTimer& timer = model_.timer;
    const double remaining = timer.remaining(model_.wallTime());
    const double fraction = remaining / timer.duration();
    const double wholeSeconds = std::ceil(remaining);
    CountdownRing::Content content{fraction, countdownText(static_cast<int>(wholeSeconds)), "Paused",
                                   isPaused()};
    if (!isPaused()) {
        const int offset = model_.host().wallTime().secondsFromUtc;
        const ZonedTime end = ZonedTime::at(timer.end(), offset, offset);
        const std::string half = end.halfOfDay(model_.hourStyle);
        content.caption = "until " + end.clockText(model_.hourStyle) + (half.empty() ? "" : " " + half);
    }
    ring_.show(std::move(content));
    if (isPaused() || remaining <= 0)
        return std::nullopt;
    // Whichever comes first: the next second, or so much of the ring that it is seen to move.
    const double untilNextSecond = remaining - (wholeSeconds - 1) + 0.002;
    const double halfPoint = timer.duration() / std::max(1.0, 2 * ring_.circumference());
    return std::min(untilNextSecond, std::max(halfPoint, 1 / mostFramesASecond));
}

void TimerRunPage::cancel() {
    model_.timer.cancel();
    model_.keepTimer();
    navigation_.reload();
}

void TimerRunPage::pauseOrResume() {
    if (isPaused())
        model_.timer.resume(model_.wallTime());
    else
        model_.timer.pause(model_.wallTime());
    model_.keepTimer();
    navigation_.reload();
}

} // namespace clockplugin
