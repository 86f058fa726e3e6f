// One bar of the header cell, known by its number and its colour.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace vela {

class velaBar : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    static constexpr double width = 3;         // points
    static constexpr double restingHeight = 4; // points
    static constexpr double areaHeight = 200;  // points; bars stand in its middle

    velaBar(int tag, double x, toolkit::Color color);

    /// Counted from 1; a bar that lies on another has its number.
    int tag() const { return tag_; }
    bool hasDefaultColor() const { return backgroundColor() == defaultColor(); }
    static toolkit::Color defaultColor() { return toolkit::Color::white(0.2, 0.7); }

    /// Points, about the middle; x and width stay.
    void setHeight(double height);
    /// Shows the bar where it stands, without what still moves it.
    void removeAllAnimations();

private:
    int tag_;
};

} // namespace vela
