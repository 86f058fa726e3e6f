// The calculator's display: the number as large as it fits, and the calculation above it. A swipe over it, to
// either side, takes back the last digit.
#pragma once

#include "Calculator.h"
#include "VelaPlugin.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace calculatorplugin {

class DisplayArea {
public:
    DisplayArea(vela::plugin::Host& host, std::function<void()> onSwipe);
    DisplayArea(const DisplayArea&) = delete;
    DisplayArea& operator=(const DisplayArea&) = delete;

    void setFrame(vela::plugin::Rect frame);
    void show(const Calculator& calculator);

private:
    struct Swipe {
        std::int64_t finger;
        vela::plugin::Point start;
        bool isDone; // one swipe takes back one digit
    };

    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void drawTopLine(vela::plugin::Canvas& canvas, vela::plugin::Rect line) const;
    void touched(const vela::plugin::Touch& touch);
    double fontSizeFitting(vela::plugin::Size size) const;

    vela::plugin::Host& host_;
    std::function<void()> onSwipe_;
    std::string number_;
    std::string calculation_;
    bool hasMemory_ = false;
    bool isError_ = false;
    std::optional<Swipe> swipe_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace calculatorplugin
