// Screen rectangles and panel widths: the formulas that every window of the product follows.
//
// These are the methods that the product adds to the host's application object; `self` is that object.
// Orientations 3 and 4 are landscape, every other value counts as portrait. Sizes are read from the
// preferences afresh on each call. Points; widths in single precision.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <cstdint>

namespace vela::geometry {

bool isLandscape(std::int64_t orientation);
/// The main screen's bounds, turned so that they suit the orientation.
toolkit::Rect screenFrame(std::int64_t orientation);

/// A fraction of the screen's width: double precision up to the result, which is single.
float panelWidth(double screenWidth, float fraction);

/// Height and top of a grabber strip on a screen of height `screenHeight`, after the "Grabber height"
/// setting.
struct GrabberStrip {
    float height;
    double top;
};
GrabberStrip grabberStrip(double screenHeight);

toolkit::Rect getScreenFrameByOrientation(runtime::Object& self, std::int64_t orientation);

/// Fractions of the screen's width that the panels take; 0 when not set.
float leftScalePortrait(runtime::Object& self);
float leftScaleLandscape(runtime::Object& self);
float rightScalePortrait(runtime::Object& self);
float rightScaleLandscape(runtime::Object& self);

/// Panel widths for the screen as it now stands.
float leftSize(runtime::Object& self);
float rightSize(runtime::Object& self);
/// Panel widths with an orientation's fraction, of the width that the screen has now.
float leftSizeForOrientation(runtime::Object& self, std::int64_t orientation);
float rightSizeForOrientation(runtime::Object& self, std::int64_t orientation);

} // namespace vela::geometry
