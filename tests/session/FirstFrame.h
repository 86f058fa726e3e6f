// How soon a panel follows a finger: a pull from a screen's edge, timed by the compositor's frames.
#pragma once

#include "tests/session/FrameWatch.h"
#include "tests/session/TestClient.h"

namespace tests {

struct FirstFrame {
    /// Of the compositor, from the movement with which the pan begins to the first that shows the panel,
    /// which is counted too; mostFrames + 1 when none has. In the first one there is nothing to see: a panel
    /// counts from where its pan began.
    int frames = 0;
    double milliseconds = 0;

    static constexpr int mostFrames = 30;
};

enum class Edge { Left, Right };

/// The finger makes one step of eight points in each frame until the panel is seen, goes back to where its
/// pan began, rests, and is lifted, so that the panel goes too. The screen is `width` points wide; the panel
/// must be away.
FirstFrame pullFirstFrame(TestClient& hand, FrameWatch& watch, Edge edge, int width);

} // namespace tests
