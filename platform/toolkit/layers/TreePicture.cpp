#include "platform/toolkit/layers/TreePicture.h"

#include "platform/toolkit/layers/DisplayListBuilder.h"

#include <cmath>

namespace toolkit {

namespace {

/// Whether the item fills the whole frame evenly and nothing else.
bool isFlat(const DisplayItem& item, const PixelRect& frame) {
    const DisplayLook& look = item.look;
    const bool plain = look.cornerRadius == 0 && look.shapeClips.empty() && look.opacity >= 1 &&
                       !look.contents && !look.drawsContent && !look.drawsShape && look.shadow.opacity <= 0;
    // A frame that ends between pixels is rounded up, its layers to the nearest.
    const bool fills = item.extents.x == 0 && item.extents.y == 0 && item.extents.width >= frame.width - 1 &&
                       item.extents.height >= frame.height - 1;
    return item.part == DisplayItem::Part::Body && item.groupDepth == 0 && plain && fills &&
           look.background.has_value() != look.backdrop.has_value();
}

/// Takes the flat items at the bottom off the list.
void takeFlat(std::vector<DisplayItem>& items, const PixelRect& frame, TreePicture::Look& look) {
    std::size_t count = 0;
    for (; count < items.size() && isFlat(items[count], frame); ++count) {
        const DisplayLook& flat = items[count].look;
        if (flat.background && !look.color && !look.glass)
            look.color = flat.background;
        else if (flat.backdrop && !look.glass)
            look.glass = flat.backdrop;
        else
            break;
    }
    items.erase(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(count));
}

/// Ends of groups are counted from the list's beginning.
void moveGroupEnds(std::vector<DisplayItem>& items, std::size_t taken) {
    for (DisplayItem& item : items)
        if (item.part == DisplayItem::Part::GroupBegin)
            item.groupEnd -= taken;
}

Rect onWholePoints(const PixelRect& pixels, double scale) {
    const double left = std::floor(pixels.x / scale), top = std::floor(pixels.y / scale);
    return {left, top, std::ceil(pixels.maxX() / scale) - left, std::ceil(pixels.maxY() / scale) - top};
}

} // namespace

TreePicture::TreePicture() = default;
TreePicture::~TreePicture() = default;

/// Keeps the former rectangle while the frame keeps its size, so that a surface is not made anew whenever
/// something comes or goes within.
Rect TreePicture::contentFor(const Rect& touched, Size frameSize) const {
    return frameSize == look_.frame.size() ? touched.united(look_.content) : touched;
}

void TreePicture::update(const std::shared_ptr<Layer>& root, double scale) {
    const Rect bounds = std::get<Rect>(root->presented(LayerProperty::Bounds));
    Look look;
    look.frame = root->presentedToParent().apply(bounds);
    look.opacity = std::clamp(std::get<double>(root->presented(LayerProperty::Opacity)), 0.0, 1.0);

    const PixelRect frame = contentPixels(look.frame.size(), scale);
    DisplayListBuilder(frame, scale).buildAlone(*root, look.frame.origin(), items_);
    const std::size_t all = items_.size();
    takeFlat(items_, frame, look);
    PixelRect touched;
    for (const DisplayItem& item : items_)
        touched = touched.united(item.extents);
    look.content = contentFor(onWholePoints(touched, scale), look.frame.size());
    if (touched.isEmpty())
        look.content = {};
    const std::size_t taken = all - items_.size();
    const bool wasEmpty = look_.content.isEmpty();
    look_ = look;
    painted_ = {};
    if (look.content.isEmpty())
        return;

    const Point origin{look.frame.x + look.content.x, look.frame.y + look.content.y};
    DisplayListBuilder(Compositor::pixelsOf(look.content.size(), scale), scale)
        .buildAlone(*root, origin, items_);
    items_.erase(items_.begin(), items_.begin() + static_cast<std::ptrdiff_t>(taken));
    moveGroupEnds(items_, taken);
    painted_ = compositor_.composeItems(items_, look.content.size(), scale);
    if (wasEmpty && painted_.damage.empty()) // the same as before there was nothing
        painted_.damage.push_back({0, 0, static_cast<double>(compositor_.pixelWidth()),
                                   static_cast<double>(compositor_.pixelHeight())});
}

} // namespace toolkit
