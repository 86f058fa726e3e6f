#include "Slide.h"

#include <algorithm>

namespace calendarplugin {

void Slide::begin(double distance, double now) {
    distance_ = distance;
    start_ = now;
}

double Slide::offset(double now) const {
    if (!isRunning(now))
        return 0;
    const double left = 1 - std::clamp((now - start_) / duration, 0.0, 1.0);
    return distance_ * left * left * left;
}

} // namespace calendarplugin
