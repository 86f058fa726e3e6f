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

    /// Fits the picture into `area`. `pixelsPerUnit` is the window's own scale and `screenScale` the phone's:
    /// where the phone's pixels come out nearly as large as whole pixels of the window, or half as large,
    /// they are made exactly so.
    static DeviceLayout fit(const DevicePicture& picture, toolkit::Size area, double angle,
                            double pixelsPerUnit, double screenScale);

    /// The angle of a phone that is held so; nothing for lying flat and unknown.
    static std::optional<double> angleOf(toolkit::DeviceOrientation orientation);
    /// Maps the screen's coordinates, as the interface stands (1 to 4), to the body's.
    static toolkit::AffineTransform screenToBody(const DevicePicture& picture, int interfaceOrientation);
};

} // namespace phone
