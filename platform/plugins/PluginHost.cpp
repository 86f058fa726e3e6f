#include "platform/plugins/PluginHost.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/RunLoop.h"
#include "platform/plugins/PluginImage.h"
#include "platform/plugins/PluginTimer.h"
#include "platform/plugins/TimeOfDay.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <exception>

namespace plugins {

namespace {

constexpr double longestAnimation = 60;                   // seconds
constexpr double longestInterval = 1e9;                   // seconds
constexpr std::size_t largestResource = 16 * 1024 * 1024; // bytes

} // namespace

PluginHost::PluginHost(toolkit::UIView& view, CallerPointer caller, std::string bundleDirectory)
    : PluginContainer(view, std::move(caller)),
      bundleDirectory_(std::move(bundleDirectory)),
      storage_(this->caller()->identifier) {}

PluginHost::~PluginHost() = default;

sdk::Rect PluginHost::bounds() const {
    const toolkit::Size size = parent().bounds().size();
    return {0, 0, size.width, size.height};
}

void PluginHost::setNeedsDisplay() {
    parent().setNeedsDisplay();
}

void PluginHost::setNeedsLayout() {
    parent().setNeedsLayout();
}

void PluginHost::animate(double duration, const std::function<void()>& changes) {
    if (!changes)
        return;
    // An exception of the plug-in's must not pass through the toolkit.
    std::exception_ptr exception;
    toolkit::UIView::animate(within(duration, 0, longestAnimation), 0, toolkit::AnimationCurve::EaseInOut,
                             [&] {
                                 try {
                                     changes();
                                 } catch (...) {
                                     exception = std::current_exception();
                                 }
                             });
    if (exception)
        std::rethrow_exception(exception);
}

double PluginHost::now() const {
    return foundation::RunLoop::main().now();
}

sdk::WallTime PluginHost::wallTime() const {
    const TimeOfDay time = timeOfDay();
    return {time.seconds, time.secondsFromUtc};
}

std::optional<int> PluginHost::secondsFromUtcIn(std::string_view zone, double seconds) const {
    return plugins::secondsFromUtcIn(std::string(zone), seconds);
}

std::unique_ptr<sdk::Timer> PluginHost::startTimer(double interval, bool repeats,
                                                   std::function<void()> handler) {
    const double shortest = repeats ? foundation::RunLoop::frameInterval : 0;
    auto state = std::make_shared<TimerState>(caller(), std::move(handler));
    state->start(within(interval, shortest, longestInterval), repeats);
    std::erase_if(timers_, [](const auto& timer) { return timer.expired(); });
    timers_.push_back(state);
    return std::make_unique<PluginTimer>(std::move(state));
}

sdk::ImagePointer PluginHost::image(std::string_view path) {
    auto& kept = images_[std::string(path)];
    if (auto image = kept.lock())
        return image;
    auto loaded = toolkit::loadImageNamed(pathOf(path), toolkit::UIScreen::mainScreen().scale());
    if (!loaded)
        return nullptr;
    auto image = std::make_shared<const PluginImage>(std::move(loaded));
    kept = image;
    return image;
}

std::optional<std::string> PluginHost::resource(std::string_view path) const {
    const auto bytes = foundation::FileManager::shared().read(pathOf(path), largestResource);
    if (!bytes)
        return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

sdk::Size PluginHost::measure(std::string_view text, const sdk::TextStyle& style, double width) const {
    const double limit = width >= 0 ? within(width, 0, farthestCoordinate) : -1;
    return toPlugin(toolkit::TextLayout(std::string(text), toToolkit(style), limit).size());
}

void PluginHost::log(std::string_view line) {
    foundation::log(caller()->identifier + ": " + std::string(line));
}

void PluginHost::stopTimers() {
    for (const auto& weak : timers_)
        if (const auto timer = weak.lock())
            timer->stop();
}

} // namespace plugins
