// What the phone does for one view of a plug-in: the contract's Host.
#pragma once

#include "platform/plugins/PluginContainer.h"
#include "platform/plugins/PluginStorage.h"

#include <map>

namespace plugins {

class TimerState;

class PluginHost final : public PluginContainer<sdk::Host> {
public:
    /// For the plug-in's `view`, which owns this. `bundleDirectory` is a device path.
    PluginHost(toolkit::UIView& view, CallerPointer caller, std::string bundleDirectory);
    ~PluginHost();

    sdk::Rect bounds() const override;
    void setNeedsDisplay() override;
    void setNeedsLayout() override;
    void animate(double duration, const std::function<void()>& changes) override;
    double now() const override;
    sdk::WallTime wallTime() const override;
    std::optional<int> secondsFromUtcIn(std::string_view zone, double seconds) const override;
    std::unique_ptr<sdk::Timer> startTimer(double interval, bool repeats,
                                           std::function<void()> handler) override;
    sdk::Storage& storage() override { return storage_; }
    sdk::ImagePointer image(std::string_view path) override;
    std::optional<std::string> resource(std::string_view path) const override;
    sdk::Size measure(std::string_view text, const sdk::TextStyle& style, double width) const override;
    void log(std::string_view line) override;

    /// Of a plug-in that has ended.
    void stopTimers();

private:
    std::string pathOf(std::string_view path) const { return bundleDirectory_ + "/" + std::string(path); }

    std::string bundleDirectory_;
    PluginStorage storage_;
    std::vector<std::weak_ptr<TimerState>> timers_;
    std::map<std::string, std::weak_ptr<const sdk::Image>, std::less<>> images_;
};

} // namespace plugins
