// Pictures of layers' contents at the screen's scale, made when they are first needed and kept within a
// budget.
#pragma once

#include "platform/toolkit/layers/DisplayItem.h"

#include <unordered_map>

namespace toolkit {

class ContentCache {
public:
    /// Beyond this many pixels a layer's content is drawn afresh each time instead.
    static constexpr std::int64_t largestPicture = 16'000'000;

    /// What the layer's delegate draws, in pixels of the screen; null for a content too large to be kept.
    std::shared_ptr<const Image> content(const DisplayItem& item, double scale);
    /// The layer's contents picture in the size in which it is shown; the picture itself where that fits.
    std::shared_ptr<const Image> resized(const DisplayItem& item, int width, int height, double scale);

    /// Ends a frame: lets go of the longest unused pictures beyond the budget.
    void trim();
    void clear() { entries_.clear(); }

private:
    struct Entry {
        std::uint64_t contentVersion = 0;
        Size size; // in points, of a content
        double scale = 0;
        std::shared_ptr<const Image> source; // of a resized picture
        std::shared_ptr<const Image> image;
        std::uint64_t lastUse = 0;
    };
    enum class Kind { Content, Resized };
    Entry& entry(const DisplayItem& item, Kind kind);

    std::unordered_map<std::uint64_t, Entry> entries_;
    std::uint64_t frame_ = 0;
};

} // namespace toolkit
