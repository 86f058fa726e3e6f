// Pixels that the compositor can read: premultiplied, blue, green, red, alpha in memory.
#pragma once

#include "hosts/session/wayland/Proxy.h"
#include "platform/toolkit/rendering/PixelView.h"

#include <cstddef>

namespace session {

class ShmBuffer {
public:
    /// All clear. Throws std::bad_alloc when there is no memory for it.
    ShmBuffer(wl_shm& shm, int width, int height);
    /// For pictures of the compositor's: a layout of its choice.
    ShmBuffer(wl_shm& shm, int width, int height, int bytesPerRow, std::uint32_t format);
    ~ShmBuffer();
    ShmBuffer(const ShmBuffer&) = delete;
    ShmBuffer& operator=(const ShmBuffer&) = delete;

    wl_buffer* object() const { return buffer_.get(); }
    toolkit::PixelView view() const { return {pixels_, width_, height_, bytesPerRow_, 0, 0}; }
    std::size_t byteCount() const { return byteCount_; }

    /// From being attached to a surface until the compositor gives it back.
    bool isBusy() const { return busy_; }
    void setBusy() { busy_ = true; }

private:
    Proxy<wl_buffer> buffer_;
    std::uint8_t* pixels_ = nullptr;
    int width_;
    int height_;
    int bytesPerRow_;
    std::size_t byteCount_;
    bool busy_ = false;
};

} // namespace session
