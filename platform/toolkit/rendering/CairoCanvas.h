// The canvas that paints: premultiplied pixels in memory, one thread at a time.
#pragma once

#include "platform/toolkit/rendering/Backdrop.h"
#include "platform/toolkit/rendering/Canvas.h"

#include <memory>

namespace toolkit {

class CairoCanvas final : public Canvas {
public:
    /// Paints into pixels that the caller keeps alive, `scale` of them a point. Nothing is cleared.
    CairoCanvas(const PixelView& target, double scale);
    ~CairoCanvas() override;
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    void save() override;
    void restore() override;
    void concat(const AffineTransform& transform) override;
    void clipRect(Rect rect) override;
    void clipRoundedRect(Rect rect, double radius) override;
    void fillRect(Rect rect, Color color) override;
    void fillRoundedRect(Rect rect, double radius, Color color) override;
    void fillPath(const Path& path, Color color) override;
    void strokePath(const Path& path, double width, LineCap cap, Color color) override;
    void fillLinearGradient(Rect rect, Point from, Point to, const std::vector<GradientStop>& stops) override;
    void fillRadialGradient(Rect rect, Point center, double radius,
                            const std::vector<GradientStop>& stops) override;
    /// A picture whose pixels are the target's own, pixel for pixel, is put on whole pixels and copied.
    void drawImage(const Image& image, Rect into, double opacity,
                   ImageFilter filter = ImageFilter::Smooth) override;
    void drawText(const TextLayout& text, Point topLeft, Color color) override;
    void drawShadow(Rect rect, double cornerRadius, double blur, Size offset, Color color) override;
    void drawBackdrop(Rect rect, double cornerRadius, BackdropStyle style) override;
    void beginGroup(Rect bounds, double opacity, GroupBlend blend) override;
    void endGroup() override;
    void endGroupMasked(Rect maskRect, Point from, Point to, const std::vector<GradientStop>& stops) override;

    /// The two halves of drawBackdrop, for those who keep the blurred picture between frames.
    /// `area` in device pixels, whatever transforms stand.
    Backdrop captureBackdrop(PixelRect area, BackdropStyle style) const;
    void drawBackdrop(const Backdrop& backdrop, Rect rect, double cornerRadius);
    /// Draws `image`, with the filter of ImageContext, over or instead of what is there.
    void replaceWithImage(const Image& image, Rect into, double opacity, ImageFilter filter);

    /// Lets go of the memory that this thread's canvases keep for groups to come.
    static void forgetSparePixels();

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace toolkit
