#include "hosts/session/surfaces/SolidPixels.h"

#include "hosts/session/wayland/Protocols.h"
#include "platform/foundation/FileDescriptor.h"

#include <algorithm>
#include <cmath>

#include <sys/mman.h>

namespace session {

namespace {

constexpr int poolPixelCount = 1024; // four times as many as one colour has alphas
constexpr std::size_t poolBytes = poolPixelCount * sizeof(std::uint32_t);

std::uint32_t channel(double value) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

} // namespace

SolidPixels::~SolidPixels() {
    if (poolPixels_)
        munmap(poolPixels_, poolBytes);
}

std::uint32_t SolidPixels::pixelOf(const toolkit::Color& color, double opacity) {
    const double alpha = std::clamp(color.alpha * opacity, 0.0, 1.0);
    return channel(alpha) << 24 | channel(color.red * alpha) << 16 | channel(color.green * alpha) << 8 |
           channel(color.blue * alpha);
}

wl_buffer* SolidPixels::buffer(std::uint32_t pixel) {
    Proxy<wl_buffer>& kept = buffers_[pixel];
    if (!kept)
        kept = make(pixel);
    return kept.get();
}

Proxy<wl_buffer> SolidPixels::make(std::uint32_t pixel) {
    if (globals_.singlePixelBuffers) {
        // Each byte becomes 32 bits wide: 0xFF is 0xFFFFFFFF.
        const auto wide = [pixel](int shift) { return (pixel >> shift & 0xFF) * 0x01010101u; };
        return Proxy<wl_buffer>(wp_single_pixel_buffer_manager_v1_create_u32_rgba_buffer(
            globals_.singlePixelBuffers.get(), wide(16), wide(8), wide(0), wide(24)));
    }
    if (!openPool())
        return nullptr;
    poolPixels_[poolUsed_] = pixel;
    const int offset = poolUsed_++ * static_cast<int>(sizeof pixel);
    return Proxy<wl_buffer>(
        wl_shm_pool_create_buffer(pool_.get(), offset, 1, 1, sizeof pixel, WL_SHM_FORMAT_ARGB8888));
}

/// A full pool is left to the buffers that were made from it.
bool SolidPixels::openPool() {
    if (pool_ && poolUsed_ < poolPixelCount)
        return true;
    const foundation::FileDescriptor file(memfd_create("vela-session-pixels", MFD_CLOEXEC));
    if (!file || ftruncate(file.number(), poolBytes) != 0)
        return false;
    void* memory = mmap(nullptr, poolBytes, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
    if (memory == MAP_FAILED)
        return false;
    if (poolPixels_)
        munmap(poolPixels_, poolBytes);
    poolPixels_ = static_cast<std::uint32_t*>(memory);
    poolUsed_ = 0;
    pool_.reset(wl_shm_create_pool(globals_.shm.get(), file.number(), poolBytes));
    return true;
}

} // namespace session
