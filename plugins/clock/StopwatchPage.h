// The stopwatch: its time, two buttons and the laps.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "LapList.h"
#include "Page.h"
#include "Ticker.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace clockplugin {

class StopwatchPage : public Page {
public:
    explicit StopwatchPage(ClockModel& model);

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    std::optional<double> update();
    void drawTime(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds);
    void startOrStop();
    void lapOrReset();
    /// After a button: keeps the stopwatch, and shows it as it is now.
    void changed();

    ClockModel& model_;
    bool isActive_ = false;
    std::string text_;
    std::unique_ptr<vela::plugin::DrawnArea> time_;
    // The font size that fits, and what it was found for.
    double fontSize_ = 0;
    std::size_t fittedLength_ = 0;
    double fittedWidth_ = 0;
    ActionButton left_;
    ActionButton right_;
    LapList laps_;
    Ticker ticker_;
};

} // namespace clockplugin
