// A record halfway out of its sleeve, drawn by code: what an empty music library shows.
#pragma once

#include "platform/toolkit/rendering/Image.h"

namespace phone {

/// The record reaches out to the right of a square sleeve as high as the picture.
std::shared_ptr<const toolkit::Image> drawRecord(double sleeveSide, double scale);

/// The picture's width for a sleeve of height 1.
inline constexpr double recordAspect = 1.42;

} // namespace phone
