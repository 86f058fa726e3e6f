// Shows a new track in the music panel: the strip of songs, missing covers, and the lyric.
#pragma once

#include "platform/foundation/PropertyList.h"

namespace vela {
class rightController;
}

namespace vela::nowplaying {

enum class Source { Radio, Song };

/// The panel as it is without any track.
void showNoTrack(rightController& panel);
/// `info` is the now-playing information of a track that plays. The same track told twice is looked up twice.
void showTrack(rightController& panel, const foundation::PropertyList& info, Source source);

} // namespace vela::nowplaying
