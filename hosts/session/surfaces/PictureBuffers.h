// The buffers through which a picture that changes now and then reaches the compositor: as many as it holds
// at a time, each brought up to date by what has changed since it was last shown.
#pragma once

#include "hosts/session/surfaces/ShmBuffer.h"
#include "platform/toolkit/layers/Compositor.h"

#include <memory>
#include <vector>

namespace session {

class PictureBuffers {
public:
    explicit PictureBuffers(wl_shm& shm) : shm_(shm) {}

    /// What has changed in the picture, in its pixels.
    void note(const std::vector<toolkit::Rect>& damage);
    /// A buffer that shows the picture at `opacity`; null when there is no memory.
    ShmBuffer* bringUpToDate(const toolkit::Compositor& picture, double opacity);

private:
    struct Slot {
        std::unique_ptr<ShmBuffer> buffer;
        std::vector<toolkit::PixelRect> stale;
        double opacity = 1;
    };
    Slot* freeSlot(int width, int height);

    wl_shm& shm_;
    std::vector<Slot> slots_;
};

} // namespace session
