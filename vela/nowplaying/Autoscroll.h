// Moves the lyric along with the song.
#pragma once

#include "platform/runtime/Object.h"

namespace vela::nowplaying {

/// One frame's step: closes one hundredth of the way to where the song has got to. While the user drags, or
/// no lyric is shown, it only notes where the text stands, so as to go on from there. Allocates nothing.
void scrollLyric(runtime::Object& self);

} // namespace vela::nowplaying
