#include "Ticker.h"

#include <algorithm>
#include <utility>

namespace clockplugin {

namespace {

constexpr double shortestInterval = 1.0 / 60;

} // namespace

Ticker::Ticker(vela::plugin::Host& host, Work work) : host_(host), work_(std::move(work)) {}

void Ticker::start() {
    timer_.reset();
    if (const std::optional<double> interval = work_())
        timer_ = host_.startTimer(std::max(*interval, shortestInterval), false, [this] { start(); });
}

} // namespace clockplugin
