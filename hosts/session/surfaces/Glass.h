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
    /// Pixels of the small picture a point of the screen.
    static constexpr double pixelsPerPoint = 0.5;

    explicit Glass(wl_shm& shm) : shm_(shm) {}

    /// What lies beneath, the whole screen of `size` points; null where it cannot be told, for glass over
    /// plain grey.
    void setScene(const std::shared_ptr<const toolkit::Image>& scene, toolkit::Size size);
    bool hasScene() const { return scene_ != nullptr; }
    void clear();

    /// The whole screen through glass of that style; null when there is no memory.
    ShmBuffer* picture(toolkit::BackdropStyle style);

private:
    wl_shm& shm_;
    std::shared_ptr<const toolkit::Image> scene_;
    std::map<toolkit::BackdropStyle, std::unique_ptr<ShmBuffer>> pictures_;
};

} // namespace session
