// Tells a tap on the month from a swipe over it, and says how far the month is drawn aside meanwhile.
//
// A finger that moves more than the slop sideways drags the month along; lifted far enough from where it came
// down, or fast enough, it turns the page. Up and down it turns by a year. Pure logic: time comes with the
// touches.
#pragma once

#include "VelaPlugin.h"

#include <optional>

namespace calendarplugin {

class MonthSwipe {
public:
    static constexpr double slop = 10;         // points that a tap allows
    static constexpr double pagePart = 0.3;    // of the width, from which lifting turns the page
    static constexpr double flickSpeed = 300;  // points a second, from which it does so at once
    static constexpr double yearDistance = 60; // points up or down

    enum class Outcome { None, Tap, Months };

    struct Result {
        Outcome outcome = Outcome::None;
        int months = 0;                 // with Months: how many to go on, or back
        vela::plugin::Point point = {}; // with Tap
    };

    /// `width` is the month's.
    Result handle(const vela::plugin::Touch& touch, double width);

    /// Where a finger rests that may yet become a tap.
    std::optional<vela::plugin::Point> pressedPoint() const;
    /// How far the month is drawn aside, in points; 0 when it is not dragged.
    double offset() const;
    bool isDragging() const { return phase_ == Phase::Sideways; }
    void cancel() { phase_ = Phase::Idle; }

private:
    enum class Phase { Idle, Pressed, Sideways, UpOrDown };

    void moved(const vela::plugin::Touch& touch);
    Result ended(const vela::plugin::Touch& touch, double width);

    Phase phase_ = Phase::Idle;
    std::int64_t finger_ = 0;
    vela::plugin::Point start_;
    vela::plugin::Point latest_;
    double latestTime_ = 0;
    double speed_ = 0; // sideways, points a second
};

} // namespace calendarplugin
