// A subsurface: one rectangle of the stage, moved and, where it can, scaled by the compositor.
//
// What is asked takes effect with the stage's next commit, all of it at once. Only differences to what was
// asked before cost anything. Points of the screen.
#pragma once

#include "hosts/session/surfaces/PlainBuffers.h"
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
    /// be looked at again; one that is shown already need not be attached. Without a viewporter a whole
    /// buffer has a whole number of pixels each point, and a part one pixel.
    void showPicture(ShmBuffer& buffer, const toolkit::Rect& source, const PointRect& place, bool changed);
    void hide();

private:
    void place(const PointRect& place, const std::optional<toolkit::Rect>& source);
    void fill(std::uint32_t pixel, const PointRect& place);
    void copyPart(const ShmBuffer& buffer, const toolkit::Rect& source);
    void attach(ShmBuffer* buffer, int scale);
    void attach(wl_buffer* buffer);
    void commit();

    SolidPixels& pixels_;
    Proxy<wl_surface> surface_;
    Proxy<wl_subsurface> subsurface_;
    Proxy<wp_viewport> viewport_;
    wl_buffer* attached_ = nullptr;
    std::optional<PointRect> place_;
    std::optional<toolkit::Rect> source_;
    bool changed_ = false;

    // Without a viewporter.
    PlainBuffers plain_;
    std::optional<std::uint32_t> filledWith_; // what the plain buffer that is attached shows
    const ShmBuffer* copiedFrom_ = nullptr;
    int scale_ = 1;
};

} // namespace session
