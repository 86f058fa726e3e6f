// The pictures on the icons of the phone's applications, drawn by code.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"

#include <memory>

namespace applications {

/// Generic is the icon of what has none of its own.
enum class IconKind { Music, Radio, Photos, Notes, Settings, Clock, Calendar, Generic };

/// A square icon of `side` points with continuously rounded corners.
std::shared_ptr<const toolkit::Image> drawIcon(IconKind kind, double side, double scale);

/// An outline whose corners are rounded without a visible beginning.
toolkit::Path continuousCorners(toolkit::Rect rect);

} // namespace applications
