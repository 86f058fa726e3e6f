#include "platform/toolkit/scrolling/AxisMotion.h"

#include "platform/toolkit/scrolling/ScrollPhysics.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {
constexpr double restingDistance = 0.1; // points; less than a pixel of any screen
constexpr double restStep = 1.0 / 60;   // seconds

/// A harder throw against an edge, in points a second, goes no farther beyond it: the content stays in sight.
constexpr double hardestBounce = 3000;

double bounceRestTime(double distance, double velocity) {
    double t = 0;
    // The return takes well under two seconds for any throw; the limit is for absurd velocities.
    while (t < 3 && (std::abs(bounceBack(distance, velocity, t)) > restingDistance ||
                     std::abs(bounceVelocity(distance, velocity, t)) > restingDistance / restStep))
        t += restStep;
    return t;
}
} // namespace

AxisMotion::AxisMotion(double offset, double velocity, double low, double high) {
    double time = 0;
    while (count_ < stretches_.size()) {
        const double inside = std::clamp(offset, low, high);
        const bool bounces =
            offset != inside || (offset == low && velocity < 0) || (offset == high && velocity > 0);
        if (bounces) {
            const double distance = offset - inside;
            if (distance * velocity >= 0)
                velocity = std::clamp(velocity, -hardestBounce, hardestBounce);
            add(Kind::Bounce, time, offset, velocity, inside);
            const double crossing = bounceCrossing(distance, velocity);
            if (std::isinf(crossing)) {
                restTime_ = time + bounceRestTime(distance, velocity);
                restOffset_ = inside;
                return;
            }
            time += crossing;
            velocity = bounceVelocity(distance, velocity, crossing);
            offset = inside;
        } else {
            add(Kind::Slide, time, offset, velocity, 0);
            const double edge = velocity > 0 ? high : low;
            const double reached = velocity == 0 ? INFINITY : scrollTimeToTravel(velocity, edge - offset);
            if (std::isinf(reached) || reached >= scrollRestTime(velocity)) {
                restTime_ = time + scrollRestTime(velocity);
                restOffset_ = std::clamp(offset + scrollTravel(velocity), low, high);
                return;
            }
            time += reached;
            velocity = scrollVelocityAfter(velocity, reached);
            offset = edge;
        }
    }
    restTime_ = time;
    restOffset_ = std::clamp(offset, low, high);
}

void AxisMotion::add(Kind kind, double begin, double offset, double velocity, double edge) {
    stretches_[count_++] = {kind, begin, offset, velocity, edge};
}

const AxisMotion::Stretch& AxisMotion::stretchAt(double t) const {
    std::size_t index = 0;
    while (index + 1 < count_ && stretches_[index + 1].begin <= t)
        ++index;
    return stretches_[index];
}

double AxisMotion::offsetAfter(double t) const {
    if (t >= restTime_)
        return restOffset_;
    const Stretch& stretch = stretchAt(t);
    const double elapsed = t - stretch.begin;
    if (stretch.kind == Kind::Slide)
        return stretch.offset + scrollOffsetAfter(stretch.velocity, elapsed);
    return stretch.edge + bounceBack(stretch.offset - stretch.edge, stretch.velocity, elapsed);
}

double AxisMotion::velocityAfter(double t) const {
    if (t >= restTime_)
        return 0;
    const Stretch& stretch = stretchAt(t);
    const double elapsed = t - stretch.begin;
    if (stretch.kind == Kind::Slide)
        return scrollVelocityAfter(stretch.velocity, elapsed);
    return bounceVelocity(stretch.offset - stretch.edge, stretch.velocity, elapsed);
}

} // namespace toolkit
