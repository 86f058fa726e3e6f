// The plug-in's view: cards that are measured anew every second, but only while they are looked at.
#pragma once

#include "GraphCard.h"
#include "History.h"
#include "MeterCard.h"
#include "SystemSampler.h"

#include "VelaPlugin.h"

#include <memory>

namespace systemplugin {

class SystemView : public vela::plugin::View {
public:
    static constexpr double interval = 1; // seconds between samples

    explicit SystemView(vela::plugin::Host& host);

    void layout(vela::plugin::Rect bounds) override;

    void appWillBecomeFirstResponder();
    void appBecomeActive();
    void appDidEnterBackground();
    void tapTitleLabel();
    void velaInvoked();
    void velaDismissed();

private:
    void setOpen(bool open);
    void setVisible(bool visible);
    void updateTimer();
    void measure();
    void showProcessor(const SystemSample& sample, double now);
    void showMemory(const SystemSample& sample, double now);
    void showTraffic(const SystemSample& sample, double now);
    void showRest(const SystemSample& sample);

    SystemSampler sampler_;
    History processorHistory_;
    History memoryHistory_;
    History receivedHistory_;
    History sentHistory_;
    std::unique_ptr<vela::plugin::ScrollArea> scroll_; // outlives the cards in it
    GraphCard processor_;
    GraphCard memory_;
    GraphCard network_;
    MeterCard disk_;
    MeterCard battery_;
    MeterCard uptime_;
    bool open_ = false;
    bool visible_ = true; // the panel is there when the view is made
    std::unique_ptr<vela::plugin::Timer> timer_;
};

} // namespace systemplugin
