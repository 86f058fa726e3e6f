// Buffers of one pixel, which a viewport scales to any size: what is one colour needs no more.
#pragma once

#include "hosts/session/wayland/Globals.h"
#include "platform/toolkit/geometry/Color.h"

#include <cstdint>
#include <unordered_map>

namespace session {

class SolidPixels {
public:
    /// `globals` outlives this object.
    explicit SolidPixels(Globals& globals) : globals_(globals) {}
    ~SolidPixels();

    /// A colour as a premultiplied pixel, the alpha in the highest byte.
    static std::uint32_t pixelOf(const toolkit::Color& color, double opacity);
    /// Kept, and of use as long as this object lives.
    wl_buffer* buffer(std::uint32_t pixel);

private:
    Proxy<wl_buffer> make(std::uint32_t pixel);
    bool openPool();

    Globals& globals_;
    std::unordered_map<std::uint32_t, Proxy<wl_buffer>> buffers_;
    Proxy<wl_shm_pool> pool_; // where there are no single-pixel buffers
    std::uint32_t* poolPixels_ = nullptr;
    int poolUsed_ = 0;
};

} // namespace session
