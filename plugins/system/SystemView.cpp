#include "SystemView.h"

#include "CardStack.h"
#include "Graph.h"
#include "Look.h"
#include "Units.h"

#include <algorithm>
#include <array>

namespace systemplugin {

using namespace vela::plugin;

namespace {
constexpr double leastTraffic = 10'000; // bytes a second at a quiet graph's upper edge
constexpr double fullDisk = 0.9;
constexpr int lowBattery = 20; // percent

constexpr Color processorColor = colors::green;
constexpr Color memoryColor = colors::blue;
constexpr Color receivedColor = colors::orange;
constexpr Color sentColor = colors::purple;
} // namespace

SystemView::SystemView(Host& host)
    : View(host),
      scroll_(host.addScrollArea()),
      processor_(scroll_->content(), "Processor", {{&processorHistory_, processorColor}}),
      memory_(scroll_->content(), "Memory", {{&memoryHistory_, memoryColor}}),
      network_(scroll_->content(), "Network",
               {{&receivedHistory_, receivedColor}, {&sentHistory_, sentColor}}),
      disk_(scroll_->content(), "Disk"),
      battery_(scroll_->content(), "Battery"),
      uptime_(scroll_->content(), "Running for") {}

void SystemView::layout(Rect bounds) {
    const double width = std::max(bounds.width - 2 * look::margin, 0.0);
    scroll_->setFrame({look::margin, 0, width, std::max(bounds.height, 0.0)});
    const std::array<Card*, 6> cards = {&processor_, &memory_, &network_, &disk_, &battery_, &uptime_};
    const auto heights =
        cardHeights({{126, true}, {84, true}, {84, true}, {54, false}, {54, false}, {36, false}},
                    bounds.height - look::margin, look::gap);
    double y = 0;
    for (std::size_t index = 0; index < cards.size(); ++index) {
        cards[index]->setFrame({0, y, width, heights[index]});
        y += heights[index] + look::gap;
    }
    scroll_->setContentSize({width, y - look::gap + look::margin});
}

void SystemView::appWillBecomeFirstResponder() {
    measure(); // so that the cards open with something on them, and rates are known a moment later
}

void SystemView::appBecomeActive() {
    setOpen(true);
}

void SystemView::appDidEnterBackground() {
    setOpen(false);
}

void SystemView::tapTitleLabel() {
    scroll_->setOffset({0, 0}, true);
}

void SystemView::velaInvoked() {
    setVisible(true);
}

void SystemView::velaDismissed() {
    setVisible(false);
}

void SystemView::setOpen(bool open) {
    open_ = open;
    updateTimer();
}

void SystemView::setVisible(bool visible) {
    visible_ = visible;
    updateTimer();
}

void SystemView::updateTimer() {
    const bool runs = open_ && visible_;
    if (!runs)
        timer_.reset();
    if (!runs || timer_)
        return;
    measure();
    timer_ = host().startTimer(interval, true, [this] { measure(); });
}

void SystemView::measure() {
    const double now = host().now();
    const SystemSample sample = sampler_.sample(now);
    showProcessor(sample, now);
    showMemory(sample, now);
    showTraffic(sample, now);
    showRest(sample);
}

void SystemView::showProcessor(const SystemSample& sample, double now) {
    if (sample.processor) {
        processorHistory_.add(now, *sample.processor);
        processor_.setValue(formatPercent(*sample.processor));
        processor_.setBars(sample.cores);
    }
    processor_.show(now, 1);
}

void SystemView::showMemory(const SystemSample& sample, double now) {
    if (sample.memory) {
        memoryHistory_.add(now, sample.memory->usedPart());
        memory_.setValue(formatBytes(static_cast<double>(sample.memory->used)) + " of " +
                         formatBytes(static_cast<double>(sample.memory->total)));
    } else {
        memory_.setValue("Not known");
    }
    memory_.show(now, 1);
}

void SystemView::showTraffic(const SystemSample& sample, double now) {
    if (sample.traffic) {
        receivedHistory_.add(now, sample.traffic->received);
        sentHistory_.add(now, sample.traffic->sent);
        network_.setValue("↓ " + formatRate(sample.traffic->received) + "   ↑ " +
                          formatRate(sample.traffic->sent));
    } else if (!sample.hasNetwork) {
        network_.setValue("No network");
    }
    network_.show(now,
                  roundedTop(std::max(receivedHistory_.largest(), sentHistory_.largest()), leastTraffic));
}

void SystemView::showRest(const SystemSample& sample) {
    if (sample.disk) {
        const double part = sample.disk->usedPart();
        disk_.setValue(formatBytes(static_cast<double>(sample.disk->available)) + " free of " +
                       formatBytes(static_cast<double>(sample.disk->total)));
        disk_.setPart(part, part >= fullDisk ? colors::red : colors::yellow);
    } else {
        disk_.setValue("Not known");
        disk_.setPart({}, colors::yellow);
    }
    battery_.setValue(describe(sample.battery));
    if (sample.battery)
        battery_.setPart(sample.battery->percent / 100.0,
                         sample.battery->percent <= lowBattery ? colors::red : colors::green);
    else
        battery_.setPart({}, colors::green);
    uptime_.setValue(sample.uptime ? formatDuration(*sample.uptime) : "Not known");
}

VELA_PRINCIPAL_CLASS(SystemView)

} // namespace systemplugin
