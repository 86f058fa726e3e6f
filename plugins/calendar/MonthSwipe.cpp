#include "MonthSwipe.h"

#include <cmath>

namespace calendarplugin {

using namespace vela::plugin;

namespace {
constexpr int monthsOfYear = 12;
constexpr double restingTime = 0.1; // seconds after which an unmoved finger has lost its speed
} // namespace

MonthSwipe::Result MonthSwipe::handle(const Touch& touch, double width) {
    if (touch.phase == TouchPhase::Began && phase_ == Phase::Idle) {
        phase_ = Phase::Pressed;
        finger_ = touch.finger;
        start_ = latest_ = touch.point;
        latestTime_ = touch.time;
        speed_ = 0;
        return {};
    }
    if (phase_ == Phase::Idle || touch.finger != finger_)
        return {};
    if (touch.phase == TouchPhase::Moved)
        moved(touch);
    if (touch.phase == TouchPhase::Ended)
        return ended(touch, width);
    if (touch.phase == TouchPhase::Cancelled)
        cancel();
    return {};
}

void MonthSwipe::moved(const Touch& touch) {
    const double elapsed = touch.time - latestTime_;
    if (elapsed > 0)
        speed_ = (touch.point.x - latest_.x) / elapsed;
    latest_ = touch.point;
    latestTime_ = touch.time;
    const double sideways = std::abs(latest_.x - start_.x), upOrDown = std::abs(latest_.y - start_.y);
    if (phase_ == Phase::Pressed && std::max(sideways, upOrDown) > slop)
        phase_ = sideways >= upOrDown ? Phase::Sideways : Phase::UpOrDown;
}

MonthSwipe::Result MonthSwipe::ended(const Touch& touch, double width) {
    if (touch.point != latest_)
        moved(touch);
    if (touch.time - latestTime_ > restingTime)
        speed_ = 0;
    const Phase phase = phase_;
    phase_ = Phase::Idle;
    if (phase == Phase::Pressed)
        return {Outcome::Tap, 0, latest_};
    const double x = latest_.x - start_.x, y = latest_.y - start_.y;
    if (phase == Phase::UpOrDown)
        return std::abs(y) < yearDistance ? Result{}
                                          : Result{Outcome::Months, y < 0 ? monthsOfYear : -monthsOfYear};
    // A flick counts in its own direction; one that comes back to where it began leaves the month.
    const bool flicked = std::abs(speed_) >= flickSpeed && speed_ * x > 0;
    const bool turnedBack = std::abs(speed_) >= flickSpeed && speed_ * x < 0;
    if (turnedBack || (!flicked && std::abs(x) < width * pagePart))
        return {};
    return {Outcome::Months, x < 0 ? 1 : -1};
}

std::optional<Point> MonthSwipe::pressedPoint() const {
    return phase_ == Phase::Pressed ? std::optional(start_) : std::nullopt;
}

double MonthSwipe::offset() const {
    return phase_ == Phase::Sideways ? latest_.x - start_.x : 0;
}

} // namespace calendarplugin
