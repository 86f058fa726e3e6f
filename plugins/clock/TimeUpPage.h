// What is shown when a timer has ended, in place of everything else: the whole view pulses until it is seen
// to.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "Page.h"
#include "Ticker.h"

#include <memory>
#include <optional>

namespace clockplugin {

class TimeUpPage : public Page {
public:
    TimeUpPage(ClockModel& model, Navigation& navigation);

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    std::optional<double> pulse();
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void again();
    void dismiss();

    ClockModel& model_;
    Navigation& navigation_;
    bool isBright_ = false;
    std::unique_ptr<vela::plugin::DrawnArea> ground_;
    ActionButton again_;
    ActionButton dismiss_;
    Ticker ticker_;
};

} // namespace clockplugin
