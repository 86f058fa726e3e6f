#include "platform/toolkit/layers/DamageRegion.h"

#include <limits>

namespace toolkit {

namespace {

constexpr std::size_t mostRects = 6;
/// Painting this many pixels more costs about as much as going through the list once more.
constexpr std::int64_t cheapPixels = 4096;

std::int64_t wasteOfMerging(const PixelRect& a, const PixelRect& b) {
    return a.united(b).area() - a.area() - b.area();
}

} // namespace

void DamageRegion::add(PixelRect rect) {
    rect = rect.intersection(screen_);
    if (rect.isEmpty())
        return;
    // What overlaps is merged, which may make further ones overlap.
    for (std::size_t i = 0; i < rects_.size();) {
        if (rects_[i].contains(rect))
            return;
        if (rects_[i].intersects(rect) || wasteOfMerging(rects_[i], rect) <= cheapPixels) {
            rect = rect.united(rects_[i]);
            rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
            i = 0;
        } else {
            ++i;
        }
    }
    rects_.push_back(rect);
    while (rects_.size() > mostRects && mergeCheapestPair()) {
    }
}

bool DamageRegion::mergeCheapestPair() {
    std::size_t first = 0, second = 0;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < rects_.size(); ++i)
        for (std::size_t j = i + 1; j < rects_.size(); ++j)
            if (const std::int64_t waste = wasteOfMerging(rects_[i], rects_[j]); waste < least) {
                least = waste;
                first = i;
                second = j;
            }
    if (first == second)
        return false;
    const PixelRect merged = rects_[first].united(rects_[second]);
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(second));
    rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(first));
    add(merged);
    return true;
}

bool DamageRegion::intersects(const PixelRect& rect) const {
    for (const PixelRect& damaged : rects_)
        if (damaged.intersects(rect))
            return true;
    return false;
}

bool DamageRegion::cuts(const PixelRect& rect) const {
    const PixelRect seen = rect.intersection(screen_);
    for (const PixelRect& damaged : rects_)
        if (damaged.intersects(seen) && !damaged.contains(seen))
            return true;
    return false;
}

} // namespace toolkit
