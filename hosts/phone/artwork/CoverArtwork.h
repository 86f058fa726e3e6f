// Covers for what has none, drawn by code.
#pragma once

#include "platform/toolkit/rendering/Image.h"

namespace phone {

enum class CoverKind { Song, Station };

/// A square cover of `side` points that stands for a song or a radio station.
std::shared_ptr<const toolkit::Image> drawCover(CoverKind kind, double side, double scale);

} // namespace phone
