// Flattens layer trees, as the screen shows them now, into a list of what is to be drawn, back to front.
#pragma once

#include "platform/toolkit/layers/DisplayItem.h"

namespace toolkit {

class DisplayListBuilder {
public:
    /// `screen` in pixels.
    DisplayListBuilder(PixelRect screen, double scale) : screen_(screen), scale_(scale) {}

    /// `items` is emptied first; its memory is used again.
    void build(const std::vector<std::shared_ptr<Layer>>& roots, std::vector<DisplayItem>& items);
    /// One tree by itself, as if it were opaque as a whole; `origin`, in the root's parent's coordinates,
    /// comes to lie at (0, 0).
    void buildAlone(const Layer& root, Point origin, std::vector<DisplayItem>& items);

private:
    struct Surroundings {
        AffineTransform toPixels; // from the parent's coordinates
        PixelRect clip;
        std::vector<ShapeClip> shapeClips;
        int groupDepth = 0;
        std::size_t root = 0;
        bool ignoresOpacity = false; // of the layer alone that is added next
    };

    void addLayer(const Layer& layer, const Surroundings& around);
    void addBody(const Layer& layer, DisplayItem item, const Surroundings& around);
    void addBorder(const Layer& layer, DisplayItem item, const Surroundings& around);
    void addSublayers(const Layer& layer, const DisplayItem& item, Surroundings inside);
    void finishGroup(std::size_t begin);
    void place(DisplayItem& item, const PixelRect& touched, const Surroundings& around) const;
    PixelRect touchedPixels(const DisplayLook& look) const;

    PixelRect screen_;
    double scale_;
    std::vector<DisplayItem>* items_ = nullptr;
};

/// The rectangle of `bounds` that a picture of `size` fills.
Rect contentsRect(const Rect& bounds, Size size, ContentGravity gravity);

/// The pixels that a picture of `size` points needs.
PixelRect contentPixels(Size size, double scale);

} // namespace toolkit
