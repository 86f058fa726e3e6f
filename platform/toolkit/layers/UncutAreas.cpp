#include "platform/toolkit/layers/UncutAreas.h"

namespace toolkit {

namespace {

bool isUpright(const AffineTransform& t) {
    return t.b == 0 && t.c == 0;
}

void addCorners(std::vector<PixelRect>& areas, const AffineTransform& toPixels, const Rect& rect,
                double radius, const PixelRect& extents) {
    const Rect whole = toPixels.apply(rect);
    const double width = std::min(radius * std::abs(toPixels.a), whole.width / 2);
    const double height = std::min(radius * std::abs(toPixels.d), whole.height / 2);
    for (const double x : {whole.x, whole.maxX() - width})
        for (const double y : {whole.y, whole.maxY() - height}) {
            const PixelRect corner = PixelRect::around({x, y, width, height}).intersection(extents);
            if (!corner.isEmpty())
                areas.push_back(corner);
        }
}

} // namespace

std::vector<PixelRect> uncutAreas(const DisplayItem& item) {
    if (item.part == DisplayItem::Part::GroupBegin || item.part == DisplayItem::Part::GroupEnd)
        return {};
    const DisplayLook& look = item.look;
    const auto isTurned = [](const ShapeClip& clip) { return !isUpright(clip.toPixels); };
    const bool isRoundBorder = item.part == DisplayItem::Part::Border && look.cornerRadius > 0;
    if (!look.isAligned || look.drawsShape || isRoundBorder || std::ranges::any_of(look.shapeClips, isTurned))
        return {item.extents};
    std::vector<PixelRect> areas;
    if (look.cornerRadius > 0)
        addCorners(areas, look.toPixels, look.bounds, look.cornerRadius, item.extents);
    for (const ShapeClip& clip : look.shapeClips)
        addCorners(areas, clip.toPixels, clip.rect, clip.cornerRadius, item.extents);
    return areas;
}

} // namespace toolkit
