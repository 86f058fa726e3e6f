// Where sound goes: the sound server, the sound card, or nowhere.
#pragma once

#include <gst/gst.h>

namespace playback {

/// A sink for sound that works now, as a floating reference; null when this machine has none.
GstElement* makeAudibleSink();
/// A sink that takes sound as fast as it would be heard, and drops it. Floating.
GstElement* makeSilentSink();

} // namespace playback
