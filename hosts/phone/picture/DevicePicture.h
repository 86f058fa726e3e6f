// What the phone looks like from outside: body, bezel and buttons around the screen, where each of them lies,
// and how they are drawn. Knows no window.
//
// Body coordinates are points with the phone upright, (0, 0) the top left corner of the body.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"

namespace phone {

class DevicePicture {
public:
    enum class Part { None, Screen, Home, Lock, VolumeUp, VolumeDown };

    /// For a screen of that size in points, in portrait.
    explicit DevicePicture(toolkit::Size screenSize);

    toolkit::Size bodySize() const { return bodySize_; }
    toolkit::Rect screen() const { return screen_; }
    /// Of a button; empty for anything else. Side buttons stand out of the body.
    toolkit::Rect button(Part part) const;
    /// What a finger at a point of the body touches. Small buttons take touches near to them as well.
    Part partAt(toolkit::Point point) const;

    /// The body with its buttons, and its shadow, reach this much beyond the body's rectangle.
    static constexpr double margin = 28;
    /// Draws everything but the screen's picture, in body coordinates.
    void draw(toolkit::Canvas& canvas) const;

private:
    void drawBody(toolkit::Canvas& canvas) const;
    void drawFront(toolkit::Canvas& canvas) const;

    toolkit::Rect screen_;
    toolkit::Size bodySize_;
};

} // namespace phone
