// The icons of the desktop's applications as its icon theme has them.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <memory>
#include <string>

namespace settings {

/// One of the theme's by name, or a file by its path, `points` wide and high; null when there is no such icon
/// or it cannot be read. There must be a display.
std::shared_ptr<const toolkit::Image> themeIcon(const std::string& icon, double points);

} // namespace settings
