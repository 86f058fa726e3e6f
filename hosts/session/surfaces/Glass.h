// Frosted glass over the applications: the screen as it was when a panel was called, blurred small.
//
// One picture of the whole screen for each style; a pane shows the part of it that it lies over, so that
// moving a pane needs no drawing.
#pragma once

#include "hosts/session/surfaces/ShmBuffer.h"
#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/Image.h"

#include <map>
#include <memory>

namespace session {

class Glass {
public:
    /// A compositor that scales pictures is given a small one; any other one takes a pixel each point.
    Glass(wl_shm& shm, bool scaled) : shm_(shm), pixelsPerPoint_(scaled ? 0.5 : 1) {}

    /// Pixels of the picture a point of the screen.
    double pixelsPerPoint() const { return pixelsPerPoint_; }

    /// What lies beneath, the whole screen of `size` points; null where it cannot be told, for glass over
    /// plain grey.
    void setScene(const std::shared_ptr<const toolkit::Image>& scene, toolkit::Size size);
    bool hasScene() const { return scene_ != nullptr; }
    void clear();

    /// The whole screen through glass of that style; null when there is no memory.
    ShmBuffer* picture(toolkit::BackdropStyle style);

private:
    wl_shm& shm_;
    double pixelsPerPoint_;
    std::shared_ptr<const toolkit::Image> scene_;
    std::map<toolkit::BackdropStyle, std::unique_ptr<ShmBuffer>> pictures_;
};

} // namespace session
