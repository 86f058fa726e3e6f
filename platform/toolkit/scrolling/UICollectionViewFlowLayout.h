// Places a collection view's items one after another along the direction in which it scrolls, each centred
// across it. Sections follow one another. Coordinates are those of the collection view's content.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/scrolling/IndexPath.h"

#include <functional>
#include <vector>

namespace toolkit {

enum class ScrollDirection { Vertical, Horizontal };

class UICollectionViewFlowLayout {
public:
    ScrollDirection scrollDirection() const { return direction_; }
    void setScrollDirection(ScrollDirection direction) { direction_ = direction; }

    // What holds where no delegate says otherwise.
    Size itemSize{50, 50};
    double minimumLineSpacing = 10;
    EdgeInsets sectionInset;

    /// What one section is like.
    struct Section {
        EdgeInsets inset;
        double lineSpacing = 0;
        std::vector<Size> items;
    };
    void layOut(const std::vector<Section>& sections, Size visible);

    Size contentSize() const { return contentSize_; }
    Rect frameForItem(IndexPath indexPath) const;
    bool contains(IndexPath indexPath) const;
    /// The items that lie at least partly within a rectangle, in order.
    std::vector<IndexPath> itemsIn(const Rect& rect) const;

private:
    struct Along {
        double begin = 0;
        double end = 0;
    };
    Along along(const Rect& rect) const;
    Rect place(Size item, double begin, Along across) const;
    double layOutSection(const Section& section, double begin, Along across);

    ScrollDirection direction_ = ScrollDirection::Vertical;
    std::vector<std::vector<Rect>> frames_; // of the items of each section
    Size contentSize_;
};

} // namespace toolkit
