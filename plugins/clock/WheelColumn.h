// A wheel on the panel: dragged and thrown by the finger, a tap beside the middle rolls there.
#pragma once

#include "Ticker.h"
#include "VelaPlugin.h"
#include "Wheel.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace clockplugin {

class WheelColumn {
public:
    static constexpr double rowHeight = 44;

    /// Numbers from 0 to count − 1, with the unit beside the one in the middle.
    WheelColumn(vela::plugin::Host& host, int count, std::string unit, std::function<void()> onChange);
    WheelColumn(const WheelColumn&) = delete;
    WheelColumn& operator=(const WheelColumn&) = delete;

    int value() const { return wheel_.value(); }
    /// Calls no handler.
    void setValue(int value);
    void setFrame(vela::plugin::Rect frame);
    /// Stops rolling at once, at its end.
    void rest();

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void drawNumber(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, int number,
                    double rowsBelow) const;
    void touched(const vela::plugin::Touch& touch);
    void letGo(const vela::plugin::Touch& touch);
    std::optional<double> roll();

    struct Drag {
        std::int64_t finger;
        double startY;
        bool isTap; // has hardly moved so far
    };

    vela::plugin::Host& host_;
    Wheel wheel_;
    std::string unit_;
    std::function<void()> onChange_;
    std::optional<Drag> drag_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
    Ticker rolling_;
};

} // namespace clockplugin
