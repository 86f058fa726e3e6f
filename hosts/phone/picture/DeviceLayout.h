// Where the picture of the phone lies in an area of a window, turned as the phone is held, and the ways
// between the area's coordinates, the body's and the screen's.
//
// A value: made anew whenever something about it changes.
#pragma once

#include "hosts/phone/picture/DevicePicture.h"
#include "platform/toolkit/geometry/AffineTransform.h"
#include "platform/toolkit/windows/UIDevice.h"

namespace phone {

struct DeviceLayout {
    /// Area coordinates of the body's centre.
    toolkit::Point center;
    /// Lengths in the area for one point of the body.
    double scale = 1;
    /// Radians, clockwise: how the body is turned.
    double angle = 0;
    toolkit::AffineTransform bodyToArea;

    /// How the picture lies in its area, and what it is fitted to.
    struct Fitting {
        toolkit::Size area;
        double angle = 0; // radians
        /// The angle that the picture is to fit at: that which a turn ends with, for it keeps its size
        /// meanwhile.
        double fittedAngle = 0;
        double pixelsPerUnit = 1; // the window's own scale
        double screenScale = 1;   // the phone's
    };
    /// Fits the picture into its area. Where the phone's pixels come out nearly as large as whole pixels of
    /// the window, or half as large, they are made exactly so.
    static DeviceLayout fit(const DevicePicture& picture, const Fitting& fitting);

    /// The angle of a phone that is held so; nothing for lying flat and unknown.
    static std::optional<double> angleOf(toolkit::DeviceOrientation orientation);
    /// Maps the screen's coordinates, as the interface stands (1 to 4), to the body's.
    static toolkit::AffineTransform screenToBody(const DevicePicture& picture, int interfaceOrientation);
};

} // namespace phone
