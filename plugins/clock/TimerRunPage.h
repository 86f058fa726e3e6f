// A timer that runs or is paused.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "CountdownRing.h"
#include "Page.h"
#include "Ticker.h"

#include <optional>

namespace clockplugin {

class TimerRunPage : public Page {
public:
    TimerRunPage(ClockModel& model, Navigation& navigation);

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    std::optional<double> update();
    void cancel();
    void pauseOrResume();
    bool isPaused() const { return model_.timer.state() == CountdownTimer::State::Paused; }

    ClockModel& model_;
    Navigation& navigation_;
    bool isActive_ = false;
    CountdownRing ring_;
    ActionButton cancel_;
    ActionButton pause_;
    Ticker ticker_;
};

} // namespace clockplugin
