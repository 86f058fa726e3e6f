// The screen: its size in points as the interface now stands, and its scale in pixels a point.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

namespace toolkit {

class UIScreen {
public:
    static UIScreen& mainScreen();

    /// (0, 0, width, height); width and height are swapped while the interface is in landscape.
    Rect bounds() const { return {0, 0, size_.width, size_.height}; }
    double scale() const { return scale_; }
    void setSize(Size size) { size_ = size; }
    void setScale(double scale) { scale_ = scale; }

private:
    Size size_{375, 667};
    double scale_ = 2;
};

} // namespace toolkit
