// Moves the lyric along with the song.
#pragma once

#include "platform/runtime/Object.h"

namespace vela::nowplaying {

/// Has scrollLyric sent to the controls in every frame.
void startAutoscroll(runtime::Object& controls);
void stopAutoscroll();
/// Whether the panel with the lyric is shown. While it is not, no frames come: what they would have done is
/// done when the panel is shown again, and on the way whenever something that it depends on changes.
void setLyricShown(bool shown);
/// Makes the steps of the frames that have gone by without coming.
void catchUpAutoscroll();

/// One frame's step: closes one hundredth of the way to where the song has got to. While the user drags, or
/// no lyric is shown, it only notes where the text stands, so as to go on from there. Allocates nothing.
void scrollLyric(runtime::Object& self);

} // namespace vela::nowplaying
