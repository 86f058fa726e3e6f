#include "platform/toolkit/layers/DisplayListBuilder.h"

#include <cmath>

namespace toolkit {

namespace {

// How far a shape may reach beyond its layer's bounds, in points: strokes lie astride their path.
constexpr double shapeMargin = 16;

template <typename Value>
Value shown(const Layer& layer, LayerProperty property, const Value& model) {
    return layer.hasAnimations() ? std::get<Value>(layer.presented(property)) : model;
}

bool isFinite(const AffineTransform& t) {
    return std::isfinite(t.a) && std::isfinite(t.b) && std::isfinite(t.c) && std::isfinite(t.d) &&
           std::isfinite(t.tx) && std::isfinite(t.ty) && t.a * t.d - t.b * t.c != 0;
}

bool isPureMove(const AffineTransform& t, double scale) {
    return std::abs(t.a - scale) < 1e-6 && std::abs(t.d - scale) < 1e-6 && t.b == 0 && t.c == 0;
}

/// The edges of `bounds` on whole pixels; a thing that has any width keeps one pixel of it.
PixelRect alignedRect(const AffineTransform& toPixels, const Rect& bounds) {
    const Rect exact = toPixels.apply(bounds);
    const auto edge = [](double value) { return std::floor(std::clamp(value, -1e7, 1e7) + 0.5 + 1e-6); };
    const double left = edge(exact.x), top = edge(exact.y);
    const double right = std::max(edge(exact.maxX()), left + (exact.width > 0 ? 1 : 0));
    const double bottom = std::max(edge(exact.maxY()), top + (exact.height > 0 ? 1 : 0));
    return PixelRect::around({left, top, right - left, bottom - top});
}

/// A move of `bounds` to whole pixels is turned into exactly the map of the bounds to the aligned rectangle.
void align(DisplayLook& look, double scale) {
    look.isAligned = isPureMove(look.toPixels, scale);
    if (!look.isAligned || look.bounds.isEmpty())
        return;
    const PixelRect to = alignedRect(look.toPixels, look.bounds);
    const double a = to.width / look.bounds.width, d = to.height / look.bounds.height;
    look.toPixels = {a, 0, 0, d, to.x - look.bounds.x * a, to.y - look.bounds.y * d};
}

bool isInside(const PixelRect& pixels, const ShapeClip& clip) {
    if (clip.toPixels.b != 0 || clip.toPixels.c != 0)
        return false;
    const Rect whole = clip.toPixels.apply(clip.rect), inner = pixels.rect();
    const double rx = clip.cornerRadius * std::abs(clip.toPixels.a),
                 ry = clip.cornerRadius * std::abs(clip.toPixels.d);
    const auto covers = [&](double dx, double dy) {
        const Rect part = whole.insetBy(dx, dy);
        return inner.x >= part.x - 1e-6 && inner.y >= part.y - 1e-6 && inner.maxX() <= part.maxX() + 1e-6 &&
               inner.maxY() <= part.maxY() + 1e-6;
    };
    // The square that a quarter of a circle leaves free in its corner measures (1 - 1/√2) of the radius.
    constexpr double cornerSquare = 0.3;
    return covers(rx, 0) || covers(0, ry) || covers(rx * cornerSquare, ry * cornerSquare);
}

int drawnThings(const DisplayLook& look) {
    return (look.shadow.opacity > 0) + look.backdrop.has_value() + look.background.has_value() +
           (look.contents != nullptr) + look.drawsContent + look.drawsShape;
}

/// Whether the item can be drawn with an opacity of its own instead of by way of a group.
bool takesOpacity(const DisplayItem& item) {
    if (item.part == DisplayItem::Part::Border)
        return true;
    return item.part == DisplayItem::Part::Body && drawnThings(item.look) == 1 && !item.look.backdrop &&
           !item.look.drawsShape;
}

} // namespace

Rect contentsRect(const Rect& bounds, Size size, ContentGravity gravity) {
    if (gravity == ContentGravity::Resize || size.isEmpty())
        return bounds;
    double factor = 1;
    if (gravity == ContentGravity::AspectFit)
        factor = std::min(bounds.width / size.width, bounds.height / size.height);
    if (gravity == ContentGravity::AspectFill)
        factor = std::max(bounds.width / size.width, bounds.height / size.height);
    const Size drawn{size.width * factor, size.height * factor};
    return {bounds.x + (bounds.width - drawn.width) / 2, bounds.y + (bounds.height - drawn.height) / 2,
            drawn.width, drawn.height};
}

PixelRect contentPixels(Size size, double scale) {
    return PixelRect::around({0, 0, size.width * scale, size.height * scale});
}

void DisplayListBuilder::build(const std::vector<std::shared_ptr<Layer>>& roots,
                               std::vector<DisplayItem>& items) {
    items.clear();
    items_ = &items;
    Surroundings around{AffineTransform::scale(scale_, scale_), screen_, {}, 0, 0, false};
    for (const auto& root : roots) {
        if (root)
            addLayer(*root, around);
        ++around.root;
    }
}

void DisplayListBuilder::buildAlone(const Layer& root, Point origin, std::vector<DisplayItem>& items) {
    items.clear();
    items_ = &items;
    const AffineTransform toPixels =
        AffineTransform::translation(-origin.x, -origin.y).then(AffineTransform::scale(scale_, scale_));
    addLayer(root, {toPixels, screen_, {}, 0, 0, true});
}

void DisplayListBuilder::addLayer(const Layer& layer, const Surroundings& around) {
    const double opacity =
        around.ignoresOpacity ? 1 : std::min(1.0, shown(layer, LayerProperty::Opacity, layer.opacity()));
    if (layer.isHidden() || !(opacity > 0))
        return;
    DisplayItem item;
    item.layerId = layer.id();
    item.layer = &layer;
    item.root = around.root;
    item.look.bounds = shown(layer, LayerProperty::Bounds, layer.bounds());
    item.look.toPixels = layer.presentedToParent().then(around.toPixels);
    if (!isFinite(item.look.toPixels))
        return;
    const AffineTransform exact = item.look.toPixels;
    item.look.cornerRadius = std::max(0.0, shown(layer, LayerProperty::CornerRadius, layer.cornerRadius()));
    item.look.masksToBounds = layer.masksToBounds();
    item.look.clip = around.clip;
    align(item.look, scale_);

    const std::size_t begin = items_->size();
    const bool group = opacity < 1 || layer.mask() || layer.groupBlend() != GroupBlend::Normal;
    Surroundings inside = around;
    inside.ignoresOpacity = false;
    if (group) {
        DisplayItem beginning = item;
        beginning.part = DisplayItem::Part::GroupBegin;
        beginning.look.opacity = opacity;
        beginning.look.mask = layer.mask();
        beginning.look.toPixels = exact; // a mask moves with the layer, not with its pixels
        beginning.look.blend = layer.groupBlend();
        beginning.groupDepth = around.groupDepth;
        items_->push_back(std::move(beginning));
        ++inside.groupDepth;
    }
    addBody(layer, item, inside);
    Surroundings below = inside;
    below.toPixels = exact;
    addSublayers(layer, item, std::move(below));
    addBorder(layer, std::move(item), inside);
    if (group)
        finishGroup(begin);
}

void DisplayListBuilder::addBody(const Layer& layer, DisplayItem item, const Surroundings& around) {
    DisplayLook& look = item.look;
    if (look.bounds.isEmpty())
        return;
    if (const Color color =
            shown(layer, LayerProperty::BackgroundColor, layer.backgroundColor().value_or(Color()));
        !color.isClear())
        look.background = color;
    look.backdrop = layer.backdrop();
    look.contents = layer.contents();
    look.gravity = layer.contentGravity();
    look.drawsContent = layer.delegate() && layer.delegate()->drawsContent();
    look.drawsShape = layer.drawsShape();
    if (!layer.masksToBounds()) {
        look.shadow = layer.shadow();
        look.shadow.opacity =
            std::clamp(shown(layer, LayerProperty::ShadowOpacity, look.shadow.opacity), 0.0, 1.0);
    }
    if (look.drawsContent || look.drawsShape)
        look.contentVersion = layer.contentVersion();
    if (look.drawsShape) {
        look.strokeStart = std::get<double>(layer.presented(LayerProperty::StrokeStart));
        look.strokeEnd = std::get<double>(layer.presented(LayerProperty::StrokeEnd));
    }
    if (drawnThings(look) == 0)
        return;
    place(item, touchedPixels(look), around);
    if (!item.extents.isEmpty())
        items_->push_back(std::move(item));
}

void DisplayListBuilder::addBorder(const Layer& layer, DisplayItem item, const Surroundings& around) {
    item.look.borderWidth = layer.borderWidth();
    if (!(layer.borderWidth() > 0) || item.look.bounds.isEmpty())
        return;
    item.look.borderColor = shown(layer, LayerProperty::BorderColor, layer.borderColor());
    if (item.look.borderColor.isClear())
        return;
    item.part = DisplayItem::Part::Border;
    place(item, PixelRect::around(item.look.toPixels.apply(item.look.bounds)), around);
    if (!item.extents.isEmpty())
        items_->push_back(std::move(item));
}

void DisplayListBuilder::addSublayers(const Layer& layer, const DisplayItem& item, Surroundings inside) {
    if (layer.sublayers().empty())
        return;
    if (layer.masksToBounds()) {
        const PixelRect covered = PixelRect::around(item.look.toPixels.apply(item.look.bounds));
        inside.clip = inside.clip.intersection(covered);
        if (inside.clip.isEmpty())
            return;
        const bool upright = item.look.toPixels.b == 0 && item.look.toPixels.c == 0;
        if (item.look.cornerRadius > 0 || !(upright && item.look.isAligned))
            inside.shapeClips.push_back({item.look.toPixels, item.look.bounds, item.look.cornerRadius});
    }
    for (const auto& sublayer : layer.sublayers())
        addLayer(*sublayer, inside);
}

void DisplayListBuilder::finishGroup(std::size_t begin) {
    std::vector<DisplayItem>& items = *items_;
    if (items.size() == begin + 1) { // nothing within
        items.pop_back();
        return;
    }
    const bool plain = !items[begin].look.mask && items[begin].look.blend == GroupBlend::Normal;
    if (plain && items.size() == begin + 2 && takesOpacity(items.back())) {
        items.back().look.opacity *= items[begin].look.opacity;
        items.back().groupDepth = items[begin].groupDepth;
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(begin));
        return;
    }
    for (std::size_t i = begin + 1; i < items.size(); ++i)
        items[begin].extents = items[begin].extents.united(items[i].extents);
    items[begin].groupEnd = items.size();
    DisplayItem end;
    end.layerId = items[begin].layerId;
    end.part = DisplayItem::Part::GroupEnd;
    end.extents = items[begin].extents;
    end.look.mask = items[begin].look.mask;
    end.look.toPixels = items[begin].look.toPixels;
    end.layer = items[begin].layer;
    end.root = items[begin].root;
    end.groupDepth = items[begin].groupDepth;
    items.push_back(std::move(end));
}

void DisplayListBuilder::place(DisplayItem& item, const PixelRect& touched,
                               const Surroundings& around) const {
    item.extents = touched.intersection(around.clip);
    item.groupDepth = around.groupDepth;
    item.look.clip = item.extents;
    for (const ShapeClip& clip : around.shapeClips)
        if (!isInside(item.extents, clip))
            item.look.shapeClips.push_back(clip);
}

PixelRect DisplayListBuilder::touchedPixels(const DisplayLook& look) const {
    PixelRect touched = PixelRect::around(look.toPixels.apply(look.bounds));
    if (look.drawsContent && look.isAligned) {
        const PixelRect content = contentPixels(look.bounds.size(), scale_);
        touched = touched.united({touched.x, touched.y, content.width, content.height});
    }
    if (look.contents && !look.masksToBounds)
        touched = touched.united(PixelRect::around(
            look.toPixels.apply(contentsRect(look.bounds, look.contents->size(), look.gravity))
                .insetBy(-1, -1)));
    if (look.drawsShape)
        touched = touched.united(
            PixelRect::around(look.toPixels.apply(look.bounds.insetBy(-shapeMargin, -shapeMargin))));
    if (look.shadow.opacity > 0) {
        // Three standard deviations, and a pixel for each of the roundings on the way.
        const double reach = 3 * std::max(0.0, look.shadow.radius) + 3 / scale_;
        const Rect cast = look.shadow.path.value_or(look.bounds)
                              .offsetBy(look.shadow.offset.width, look.shadow.offset.height);
        touched = touched.united(PixelRect::around(look.toPixels.apply(cast.insetBy(-reach, -reach))));
    }
    return touched;
}

} // namespace toolkit
