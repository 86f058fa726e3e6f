// Draws display items through a canvas whose coordinates are the screen's pixels.
#pragma once

#include "platform/toolkit/layers/ContentCache.h"

#include <functional>

namespace toolkit {

class LayerPainter {
public:
    LayerPainter(ContentCache& cache, double scale) : cache_(cache), scale_(scale) {}

    /// Takes the place of Canvas::drawBackdrop; the canvas's coordinates are then the item's layer's.
    using BackdropDrawer = std::function<void(Canvas&, const DisplayItem&)>;
    void setBackdropDrawer(BackdropDrawer drawer) { drawBackdrop_ = std::move(drawer); }

    /// Draws those of the items from `begin` to `end` that touch `damage`; the caller has set the clip to it.
    void paint(const std::vector<DisplayItem>& items, std::size_t begin, std::size_t end,
               const PixelRect& damage, Canvas& canvas);

private:
    void paintItem(const DisplayItem& item, Canvas& canvas);
    void paintBody(const DisplayItem& item, Canvas& canvas);
    void paintContents(const DisplayItem& item, Canvas& canvas);
    void paintContent(const DisplayItem& item, Canvas& canvas);
    void paintBorder(const DisplayItem& item, Canvas& canvas);
    void endGroup(const DisplayItem& item, Canvas& canvas);

    ContentCache& cache_;
    double scale_;
    BackdropDrawer drawBackdrop_;
};

} // namespace toolkit
