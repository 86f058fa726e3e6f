// A round clock face with hands: bright by day and dark by night.
#pragma once

#include "VelaPlugin.h"
#include "ZonedTime.h"

namespace clockplugin {

enum class SecondHand { Without, With };

/// As large as fits into `rect`, in its middle.
void drawClockFace(vela::plugin::Canvas& canvas, vela::plugin::Rect rect, const ZonedTime& time,
                   SecondHand secondHand);

} // namespace clockplugin
