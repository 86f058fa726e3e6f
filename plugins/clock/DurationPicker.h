// Three wheels for hours, minutes and seconds.
#pragma once

#include "VelaPlugin.h"
#include "WheelColumn.h"

#include <functional>
#include <memory>

namespace clockplugin {

class DurationPicker {
public:
    DurationPicker(vela::plugin::Host& host, std::function<void()> onChange);

    /// Up to 23:59:59.
    int seconds() const;
    /// Calls no handler.
    void setSeconds(int seconds);
    void setFrame(vela::plugin::Rect frame);
    void rest();

private:
    std::unique_ptr<vela::plugin::DrawnArea> band_; // behind the numbers in the middle
    WheelColumn hours_;
    WheelColumn minutes_;
    WheelColumn seconds_;
};

} // namespace clockplugin
