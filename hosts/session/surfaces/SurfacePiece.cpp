#include "hosts/session/surfaces/SurfacePiece.h"

#include "hosts/session/wayland/Protocols.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace session {

SurfacePiece::SurfacePiece(Globals& globals, SolidPixels& pixels, wl_surface& stage)
    : pixels_(pixels),
      surface_(wl_compositor_create_surface(globals.compositor.get())),
      subsurface_(wl_subcompositor_get_subsurface(globals.subcompositor.get(), surface_.get(), &stage)),
      plain_(*globals.shm) {
    if (globals.viewporter)
        viewport_.reset(wp_viewporter_get_viewport(globals.viewporter.get(), surface_.get()));
    // Fingers go to the stage, whose coordinates stand still.
    const Proxy<wl_region> nothing(wl_compositor_create_region(globals.compositor.get()));
    wl_surface_set_input_region(surface_.get(), nothing.get());
}

SurfacePiece::~SurfacePiece() = default;

void SurfacePiece::placeAbove(wl_surface& other) {
    wl_subsurface_place_above(subsurface_.get(), &other);
}

void SurfacePiece::showPixel(std::uint32_t pixel, const PointRect& where) {
    if (where.isEmpty())
        return hide();
    if (!viewport_)
        fill(pixel, where);
    else if (wl_buffer* buffer = pixels_.buffer(pixel); buffer != attached_)
        attach(buffer);
    place(where, std::nullopt);
    commit();
}

void SurfacePiece::fill(std::uint32_t pixel, const PointRect& where) {
    if (filledWith_ == pixel && place_->width == where.width && place_->height == where.height)
        return;
    attach(plain_.filled(pixel, where.width, where.height), 1);
    filledWith_ = pixel;
}

void SurfacePiece::showPicture(ShmBuffer& buffer, const toolkit::Rect& source, const PointRect& where,
                               bool changed) {
    if (where.isEmpty())
        return hide();
    const toolkit::PixelRect whole = buffer.view().rect();
    if (!viewport_ && source != whole.rect())
        copyPart(buffer, source);
    else if (changed || buffer.object() != attached_)
        attach(&buffer, viewport_ ? 1 : std::max(1, whole.width / where.width));
    place(where, source);
    commit();
}

void SurfacePiece::copyPart(const ShmBuffer& buffer, const toolkit::Rect& source) {
    if (copiedFrom_ == &buffer && source_ == source)
        return;
    attach(plain_.part(buffer.view(), toolkit::PixelRect::around(source)), 1);
    copiedFrom_ = &buffer;
}

/// One clear pixel: some compositors (phoc 0.24) do not survive it when a subsurface of a layer's goes while
/// that stays.
void SurfacePiece::hide() {
    if (attached_)
        showPixel(0, {0, 0, 1, 1});
}

void SurfacePiece::place(const PointRect& place, const std::optional<toolkit::Rect>& source) {
    if (!place_ || place_->x != place.x || place_->y != place.y)
        wl_subsurface_set_position(subsurface_.get(), place.x, place.y);
    if (viewport_ && (!place_ || place_->width != place.width || place_->height != place.height)) {
        wp_viewport_set_destination(viewport_.get(), place.width, place.height);
        changed_ = true;
    }
    if (viewport_ && source != source_) {
        const auto fixed = [](double value) { return wl_fixed_from_double(value); };
        const auto s = source.value_or(toolkit::Rect(-1, -1, -1, -1)); // which takes the source away
        wp_viewport_set_source(viewport_.get(), fixed(s.x), fixed(s.y), fixed(s.width), fixed(s.height));
        changed_ = true;
    }
    source_ = source;
    place_ = place;
}

/// `scale` is the buffer's pixels each point; `buffer` may be null.
void SurfacePiece::attach(ShmBuffer* buffer, int scale) {
    if (std::exchange(scale_, scale) != scale)
        wl_surface_set_buffer_scale(surface_.get(), scale);
    attach(buffer ? buffer->object() : nullptr);
    if (buffer)
        buffer->setBusy();
}

void SurfacePiece::attach(wl_buffer* buffer) {
    wl_surface_attach(surface_.get(), buffer, 0, 0);
    attached_ = buffer;
    filledWith_.reset();
    copiedFrom_ = nullptr;
    changed_ = true;
}

/// A piece that only moves needs no commit of its own.
void SurfacePiece::commit() {
    if (!changed_)
        return;
    constexpr int everything = std::numeric_limits<int>::max();
    wl_surface_damage_buffer(surface_.get(), 0, 0, everything, everything);
    wl_surface_commit(surface_.get());
    changed_ = false;
}

} // namespace session
