// The parts of an item that have to be painted whole or not at all.
//
// Antialiased edges that run across the pixels come out a trace differently where the clip cuts them, so a
// frame that painted a part of one would leave a seam. Pixels of the screen.
#pragma once

#include "platform/toolkit/layers/DisplayItem.h"

namespace toolkit {

std::vector<PixelRect> uncutAreas(const DisplayItem& item);

} // namespace toolkit
