// Pictures in the size in which they are shown, a pixel each point: for compositors that scale nothing.
//
// What the compositor still reads is left alone; what it has given back is used again.
#pragma once

#include "hosts/session/surfaces/ShmBuffer.h"

#include <memory>
#include <vector>

namespace session {

class PlainBuffers {
public:
    explicit PlainBuffers(wl_shm& shm) : shm_(shm) {}

    /// One colour, premultiplied; null when there is no memory.
    ShmBuffer* filled(std::uint32_t pixel, int width, int height);
    /// The part of a picture that lies within `area`, which is cut to it; null when there is no memory.
    ShmBuffer* part(const toolkit::PixelView& picture, const toolkit::PixelRect& area);

private:
    ShmBuffer* freeBuffer(int width, int height);

    wl_shm& shm_;
    std::vector<std::unique_ptr<ShmBuffer>> buffers_;
};

} // namespace session
