// The picture of the whole screen as it is displayed now.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <memory>

namespace homescreen {

/// Null when no host can tell.
std::shared_ptr<const toolkit::Image> _UICreateScreenUIImage();

} // namespace homescreen
