// Which song of the library another player's track is.
#pragma once

#include "hosts/media/mpris/TrackMetadata.h"
#include "platform/media/MPMediaItem.h"

namespace playback {

/// The song of the same file, or else the first with the same title and artist; null when there is none, and
/// for a track without a title or without an artist that is no file of the library.
std::shared_ptr<media::MPMediaItem> songOfTrack(const media::MediaItems& songs, const TrackMetadata& track);

} // namespace playback
