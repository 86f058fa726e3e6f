// A distance that runs out to nothing, quickly at first: how a page comes to rest. A pure function of time.
#pragma once

namespace calendarplugin {

class Slide {
public:
    static constexpr double duration = 0.28; // seconds

    void begin(double distance, double now);
    void stop() { distance_ = 0; }
    bool isRunning(double now) const { return distance_ != 0 && now < start_ + duration; }
    /// What is left of the distance, 0 when it is over.
    double offset(double now) const;

private:
    double distance_ = 0;
    double start_ = 0;
};

} // namespace calendarplugin
