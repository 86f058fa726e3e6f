// The motion of a wheel that numbers are picked with. Positions are rows: 2.5 is half-way from the row of 2
// to that of 3, and after the last number comes 0 again. A wheel that is let go of rolls on to a whole row.
// Times are seconds on a clock that does not go back.
#pragma once

#include <deque>
#include <optional>

namespace clockplugin {

class Wheel {
public:
    /// Has the numbers 0 to count − 1.
    explicit Wheel(int count) : count_(count) {}

    int count() const { return count_; }
    /// Where it stands, or will when it has come to rest.
    int value() const;
    void setValue(int value);

    void grab(double time);
    /// `rows` since it was grabbed; positive towards greater numbers.
    void drag(double rows, double time);
    void release(double time);
    /// Rolls by whole rows.
    void step(int rows, double time);

    /// From 0 up to, but not including, the count.
    double position(double time) const;
    bool isRolling(double time) const;
    bool isGrabbed() const { return grabbedAt_.has_value(); }

private:
    struct Sample {
        double time;
        double position;
    };

    double freePosition(double time) const;
    void forgetSamplesBefore(double time);
    /// Rows a second, of a finger lifted at `time`.
    double speed(double time) const;
    void rollFrom(double position, double target, double time);

    int count_;
    double from_ = 0; // where the rolling began
    double to_ = 0;   // where it ends; without bounds, as it may go around
    double startedAt_ = 0;
    std::optional<double> grabbedAt_; // position
    std::deque<Sample> samples_;      // of the drag's last moments; while grabbed not empty
};

} // namespace clockplugin
