// The end of a turn of the run loop that an event of the window has filled.
#pragma once

namespace settings {

/// To be called by whoever has passed an event on to the pages: views that were marked get their layout, and
/// pictures that have changed are painted with the next frame.
void endTurn();

} // namespace settings
