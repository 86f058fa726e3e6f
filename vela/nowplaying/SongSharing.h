// Shares a song: a sheet with a ready-made text, over the host's own screen.
#pragma once

#include "platform/media/MPMediaItem.h"

namespace vela {

/// Closes the panels, goes home and shows the sheet. Nothing happens while the device is locked or the
/// service is not available.
void shareSong(const media::MPMediaItem& song);

} // namespace vela
