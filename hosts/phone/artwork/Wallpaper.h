// The picture behind home screen and lock screen, drawn by code: a dusk of soft light over layered hills of
// colour.
#pragma once

#include "platform/toolkit/rendering/Image.h"

namespace phone {

std::shared_ptr<const toolkit::Image> drawWallpaper(toolkit::Size size, double scale);

} // namespace phone
