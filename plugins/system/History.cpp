#include "History.h"

#include <algorithm>
#include <cmath>

namespace systemplugin {

void History::add(double time, double value) {
    if (!std::isfinite(value))
        return;
    if (!samples_.empty() && time < samples_.back().time)
        samples_.clear();
    if (!samples_.empty() && time == samples_.back().time)
        samples_.pop_back();
    samples_.push_back({time, value});
    while (samples_.front().time < time - duration)
        samples_.pop_front();
}

double History::largest() const {
    double largest = 0;
    for (const Sample& sample : samples_)
        largest = std::max(largest, sample.value);
    return largest;
}

} // namespace systemplugin
