// The clock on the board: three tabs, and the page of the chosen one.
#pragma once

#include "Activity.h"
#include "ClockModel.h"
#include "Page.h"
#include "SegmentedControl.h"
#include "Ticker.h"
#include "VelaPlugin.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace clockplugin {

class ClockView : public vela::plugin::View, private Navigation {
public:
    explicit ClockView(vela::plugin::Host& host);

    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) override;
    void layout(vela::plugin::Rect bounds) override;

    void appBecomeActive() { setOpen(true); }
    void appDidEnterBackground() { setOpen(false); }
    void velaInvoked() { setPanelShown(true); }
    void velaDismissed() { setPanelShown(false); }

private:
    void reload() override;
    void showCityPicker() override;

    void show(std::unique_ptr<Page> page);
    std::unique_ptr<Page> makePage();
    void layoutPage();
    void chooseTab(std::size_t index);
    void setOpen(bool open);
    void setPanelShown(bool shown);
    void applyActivity();
    std::optional<double> watchTimer();

    ClockModel model_;
    Activity activity_;
    SegmentedControl tabs_;
    bool isTimeUp_ = false;
    std::unique_ptr<Page> page_;
    Ticker timerWatch_; // notices the timer's end, whichever page is shown
};

} // namespace clockplugin
