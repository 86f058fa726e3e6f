// The window's style sheet, beyond the theme's own.
#pragma once

#include "platform/toolkit/geometry/Color.h"

#include <string>

namespace settings {

/// To be called once, when there is a display.
void addStyle();

/// The style class of switches that are of this colour while they are on.
std::string tintStyleClass(const toolkit::Color& color);

} // namespace settings
