// Where a timer is set and started.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "DurationPicker.h"
#include "Page.h"

#include <memory>
#include <vector>

namespace clockplugin {

class TimerSetupPage : public Page {
public:
    TimerSetupPage(ClockModel& model, Navigation& navigation);

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    void layoutWide(vela::plugin::Rect area);
    void layoutTall(vela::plugin::Rect area);
    void changed();
    void choosePreset(int minutes);
    void start();

    ClockModel& model_;
    Navigation& navigation_;
    DurationPicker picker_;
    ActionButton start_;
    std::vector<std::unique_ptr<ActionButton>> presets_;
};

} // namespace clockplugin
