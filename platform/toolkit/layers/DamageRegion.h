// The pixels that are to be painted again: a few rectangles that do not overlap.
#pragma once

#include "platform/toolkit/rendering/PixelView.h"

#include <vector>

namespace toolkit {

class DamageRegion {
public:
    explicit DamageRegion(PixelRect screen) : screen_(screen) {}

    /// Adds `rect`, which afterwards lies within one of the rectangles as a whole.
    void add(PixelRect rect);
    bool isEmpty() const { return rects_.empty(); }
    bool intersects(const PixelRect& rect) const;
    /// Whether one of the rectangles holds a part of what `rect` has of the screen, but not all of that.
    bool cuts(const PixelRect& rect) const;
    const std::vector<PixelRect>& rects() const { return rects_; }

private:
    bool mergeCheapestPair();

    PixelRect screen_;
    std::vector<PixelRect> rects_;
};

} // namespace toolkit
