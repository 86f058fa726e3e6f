#include "hosts/session/surfaces/PlainBuffers.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace session {

using toolkit::PixelRect;
using toolkit::PixelView;

ShmBuffer* PlainBuffers::freeBuffer(int width, int height) {
    const auto fits = [width, height](const std::unique_ptr<ShmBuffer>& buffer) {
        return buffer->view().width == width && buffer->view().height == height;
    };
    std::erase_if(buffers_, [&](const auto& buffer) { return !buffer->isBusy() && !fits(buffer); });
    const auto found =
        std::ranges::find_if(buffers_, [&](const auto& buffer) { return !buffer->isBusy() && fits(buffer); });
    if (found != buffers_.end())
        return found->get();
    try {
        buffers_.push_back(std::make_unique<ShmBuffer>(shm_, width, height));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return buffers_.back().get();
}

ShmBuffer* PlainBuffers::filled(std::uint32_t pixel, int width, int height) {
    ShmBuffer* buffer = freeBuffer(width, height);
    if (!buffer)
        return nullptr;
    const PixelView view = buffer->view();
    for (int y = 0; y < view.height; ++y)
        std::fill_n(reinterpret_cast<std::uint32_t*>(view.at(0, y)), view.width, pixel);
    return buffer;
}

ShmBuffer* PlainBuffers::part(const PixelView& picture, const PixelRect& area) {
    const PixelRect wanted = area.intersection(picture.rect());
    ShmBuffer* buffer = wanted.isEmpty() ? nullptr : freeBuffer(wanted.width, wanted.height);
    if (!buffer)
        return nullptr;
    for (int y = 0; y < wanted.height; ++y)
        std::memcpy(buffer->view().at(0, y), picture.at(wanted.x, wanted.y + y),
                    static_cast<std::size_t>(wanted.width) * 4);
    return buffer;
}

} // namespace session
