// The windows as a host takes them that gives each a surface of its own and lets somebody else compose them:
// one picture for each window instead of one of the whole screen.
//
// Does not own the windows. Main thread only.
#pragma once

#include "platform/toolkit/layers/TreePicture.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <map>
#include <memory>
#include <vector>

namespace toolkit {

/// Alive until the next update.
struct SeparateWindow {
    UIWindow* window;
    const TreePicture* picture;
};

/// What becomes of windows that are not hidden but lie off the screen: left alone at no cost, or painted and
/// answered like the others, for a host that expects them to come in.
enum class OffScreen { Ignored, Prepared };

class SeparateWindows {
public:
    /// Paints what has changed in each of `windows`, back to front, that can be seen on a screen of `screen`
    /// points, and answers those.
    const std::vector<SeparateWindow>& update(const std::vector<UIWindow*>& windows, Size screen,
                                              double scale, OffScreen offScreen);

    /// Lets go of all pictures. The next update() paints them again.
    void forget();

private:
    std::map<std::uint64_t, TreePicture> pictures_; // by the window's layer
    std::vector<SeparateWindow> visible_;
};

} // namespace toolkit
