// What the music panel remembers of the song that plays. Main thread only; lives until the process ends.
#pragma once

#include "platform/toolkit/animation/CADisplayLink.h"

#include <memory>

namespace vela::nowplaying {

struct NowPlayingState {
    float songDuration = 0; // seconds, of the last song that was reported while it played; 0 when unknown
    float elapsed = 0;      // seconds, as last reported for anything but radio
    float now = 0;          // points: where autoscroll has brought the lyric
    std::shared_ptr<toolkit::CADisplayLink> displayLink; // only while autoscroll runs
};

NowPlayingState& nowPlayingState();

} // namespace vela::nowplaying
