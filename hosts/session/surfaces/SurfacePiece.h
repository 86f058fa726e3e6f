// A subsurface: one rectangle of the stage, moved and scaled by the compositor.
//
// What is asked takes effect with the stage's next commit, all of it at once. Only differences to what was
// asked before cost anything. Points of the screen.
#pragma once

#include "hosts/session/surfaces/ShmBuffer.h"
#include "hosts/session/surfaces/SolidPixels.h"

#include <memory>
#include <optional>
#include <vector>

namespace session {

/// A rectangle on whole points.
using PointRect = toolkit::PixelRect;

class SurfacePiece {
public:
    /// Lies above the pieces that `stage` has. Everything outlives this object.
    SurfacePiece(Globals& globals, SolidPixels& pixels, wl_surface& stage);
    ~SurfacePiece();
    SurfacePiece(const SurfacePiece&) = delete;
    SurfacePiece& operator=(const SurfacePiece&) = delete;

    wl_surface* surface() const { return surface_.get(); }
    /// Puts this piece right above another surface of the stage.
    void placeAbove(wl_surface& other);

    void showPixel(std::uint32_t pixel, const PointRect& place);
    /// The part `source` of the buffer's pixels, stretched over `place`. `changed` says that the buffer is to
    /// be looked at again; one that is shown already need not be attached.
    void showPicture(ShmBuffer& buffer, const toolkit::Rect& source, const PointRect& place, bool changed);
    void hide();

private:
    void place(const PointRect& place, const std::optional<toolkit::Rect>& source);
    void attach(wl_buffer* buffer);
    void commit();
    wl_buffer* filledBuffer(std::uint32_t pixel, const PointRect& place);

    Globals& globals_;
    SolidPixels& pixels_;
    Proxy<wl_surface> surface_;
    Proxy<wl_subsurface> subsurface_;
    Proxy<wp_viewport> viewport_;
    std::unique_ptr<ShmBuffer> filled_; // without a viewporter: the pixel in the size of the piece
    wl_buffer* attached_ = nullptr;
    std::optional<PointRect> place_;
    std::optional<toolkit::Rect> source_;
    bool changed_ = false;
};

} // namespace session
