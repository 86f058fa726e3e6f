// The motion of scrolled content along one axis once the finger has let go: it slides and slows down, and
// where it runs beyond an edge it comes back. A pure function of time. Points, seconds.
#pragma once

#include <array>
#include <cstddef>

namespace toolkit {

class AxisMotion {
public:
    /// At rest at 0.
    AxisMotion() = default;
    /// Starts at `offset` with `velocity`; offsets from `low` to `high` are within the edges.
    AxisMotion(double offset, double velocity, double low, double high);

    double offsetAfter(double t) const;
    double velocityAfter(double t) const;
    /// Where it comes to rest, and when.
    double restOffset() const { return restOffset_; }
    double restTime() const { return restTime_; }

private:
    enum class Kind { Slide, Bounce };
    struct Stretch {
        Kind kind = Kind::Slide;
        double begin = 0;
        double offset = 0; // at the beginning
        double velocity = 0;
        double edge = 0; // of a bounce
    };
    const Stretch& stretchAt(double t) const;
    void add(Kind kind, double begin, double offset, double velocity, double edge);

    // A throw from beyond one edge may bounce in, slide across and bounce off the other one.
    std::array<Stretch, 3> stretches_;
    std::size_t count_ = 0;
    double restOffset_ = 0;
    double restTime_ = 0;
};

} // namespace toolkit
