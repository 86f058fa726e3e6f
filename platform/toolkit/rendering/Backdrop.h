// Frosted glass: a blurred and tinted picture of what lies beneath a rectangle.
//
// The picture is kept as a coarse grid of already tinted colours, a few kilobytes, so it can be kept and laid
// down again for as long as nothing beneath it changes. Device pixels throughout.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/PixelView.h"

#include <span>
#include <vector>

namespace toolkit {

class Backdrop {
public:
    Backdrop() = default;
    /// Takes what `targets`, lowest first, show within `rect`; each lies over those before it. The grid's
    /// cells measure four points, so a blur looks alike at every scale.
    Backdrop(std::span<const PixelView> targets, PixelRect rect, double pixelsPerPoint, BackdropStyle style);

    bool isEmpty() const { return columns_ == 0; }
    /// The rectangle that it was taken from.
    PixelRect rect() const { return rect_; }
    /// Replaces `target`'s pixels within `clip`, which is cut to the rectangle; `shape` and `cornerRadius`
    /// are those of the whole glass, of which the rectangle may be a part.
    void draw(const PixelView& target, PixelRect clip, PixelRect shape, double cornerRadius) const;

private:
    void sample(const PixelView& target);
    void blurRows();
    void blurColumns();
    void tint(BackdropStyle style);
    int firstCell(int coordinate) const;

    PixelRect rect_;
    int cell_ = 8; // pixels
    int columns_ = 0;
    int rows_ = 0;
    std::vector<std::uint16_t> colors_; // 8.8 fixed point, four channels a cell
};

} // namespace toolkit
