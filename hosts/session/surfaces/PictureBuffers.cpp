#include "hosts/session/surfaces/PictureBuffers.h"

#include <cmath>
#include <cstring>
#include <new>

namespace session {

using toolkit::PixelRect;

namespace {

/// So many rectangles are as much trouble as copying everything.
constexpr std::size_t mostRects = 24;

void copyRow(std::uint8_t* to, const std::uint8_t* from, int width, unsigned opacity) {
    if (opacity == 256) {
        std::memcpy(to, from, static_cast<std::size_t>(width) * 4);
        return;
    }
    for (int i = 0; i < width * 4; ++i)
        to[i] = static_cast<std::uint8_t>((from[i] * opacity + 128) >> 8);
}

void copyArea(const toolkit::PixelView& to, const toolkit::Compositor& from, const PixelRect& wanted,
              double opacity) {
    const PixelRect area = wanted.intersection(to.rect());
    const auto level = static_cast<unsigned>(std::lround(opacity * 256));
    for (int y = area.y; y < area.maxY(); ++y)
        copyRow(to.at(area.x, y),
                from.pixels() + static_cast<std::ptrdiff_t>(y) * from.bytesPerRow() + area.x * 4, area.width,
                level);
}

} // namespace

void PictureBuffers::note(const std::vector<toolkit::Rect>& damage) {
    for (Slot& slot : slots_) {
        for (const toolkit::Rect& rect : damage)
            slot.stale.push_back(PixelRect::around(rect));
        if (slot.stale.size() > mostRects)
            slot.stale.assign(1, slot.buffer->view().rect());
    }
}

PictureBuffers::Slot* PictureBuffers::freeSlot(int width, int height) {
    std::erase_if(slots_, [&](const Slot& slot) {
        const auto view = slot.buffer->view();
        return (view.width != width || view.height != height) && !slot.buffer->isBusy();
    });
    for (Slot& slot : slots_)
        if (!slot.buffer->isBusy() && slot.buffer->view().width == width &&
            slot.buffer->view().height == height)
            return &slot;
    try {
        slots_.push_back({std::make_unique<ShmBuffer>(shm_, width, height), {{0, 0, width, height}}, 1});
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return &slots_.back();
}

ShmBuffer* PictureBuffers::bringUpToDate(const toolkit::Compositor& picture, double opacity) {
    Slot* slot = freeSlot(picture.pixelWidth(), picture.pixelHeight());
    if (!slot)
        return nullptr;
    if (slot->opacity != opacity)
        slot->stale.assign(1, slot->buffer->view().rect());
    slot->opacity = opacity;
    for (const PixelRect& rect : slot->stale)
        copyArea(slot->buffer->view(), picture, rect, opacity);
    slot->stale.clear();
    return slot->buffer.get();
}

} // namespace session
