// What a painting canvas is in the middle of: the stack of targets that groups make. Private to the canvas.
#pragma once

#include "platform/toolkit/rendering/CairoCanvas.h"
#include "platform/toolkit/rendering/CairoDrawing.h"

namespace toolkit {

/// What is being painted into: the canvas's own pixels, or a group's.
struct CairoTarget {
    PixelView view;
    cairo_surface_t* surface = nullptr;
    cairo_t* cr = nullptr;
    double opacity = 1;
    GroupBlend blend = GroupBlend::Normal;
    std::vector<std::uint32_t> pixels; // a group's own

    void open();
    void close();
};

struct CairoCanvas::State {
    std::vector<CairoTarget> targets; // the last one is painted into
    double scale = 1;

    CairoTarget& target() { return targets.back(); }
    cairo_t* cr() const { return targets.back().cr; }
    /// From the user space of now to the pixels that all targets share.
    AffineTransform toDevice() const;
    std::vector<PixelView> views() const;

    void fill(const Color& color);
    void setImage(const Image& image, const Rect& into, ImageFilter filter);
    void drawImage(const Image& image, Rect into, double opacity, ImageFilter filter);
    void drawMask(std::vector<std::uint8_t>& coverage, int width, int height, int bytesPerRow, Point topLeft,
                  const Color& color);
    void drawBackdrop(const Backdrop& backdrop, Rect rect, double cornerRadius);
    /// A turned glass, or one behind a curved edge: drawn whole beside the target, then put in through the
    /// shape.
    void drawBackdropThroughShape(const Backdrop& backdrop, Rect rect, double cornerRadius);
    void pushGroup(const Rect& bounds, double opacity, GroupBlend blend);
    /// Multiplies the group's pixels by the gradient's alpha.
    void maskTopGroup(const Rect& maskRect, Point from, Point to, const std::vector<GradientStop>& stops);
    void popGroup();
    void layGroup(CairoTarget& group);
    void mixGroupThroughClip(CairoTarget& group);
};

} // namespace toolkit
