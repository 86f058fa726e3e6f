#include "platform/toolkit/layers/LayerPainter.h"

#include "platform/toolkit/layers/DisplayListBuilder.h"

#include <cmath>

namespace toolkit {

namespace {

Color faded(Color color, double opacity) {
    return color.withAlpha(color.alpha * opacity);
}

void fill(Canvas& canvas, const Rect& rect, double radius, const Color& color) {
    if (radius > 0)
        canvas.fillRoundedRect(rect, radius, color);
    else
        canvas.fillRect(rect, color);
}

} // namespace

void LayerPainter::paint(const std::vector<DisplayItem>& items, std::size_t begin, std::size_t end,
                         const PixelRect& damage, Canvas& canvas) {
    for (std::size_t i = begin; i < end; ++i) {
        const DisplayItem& item = items[i];
        if (item.part == DisplayItem::Part::GroupEnd) {
            endGroup(item, canvas);
        } else if (!item.extents.intersects(damage)) {
            if (item.part == DisplayItem::Part::GroupBegin)
                i = item.groupEnd;
        } else if (item.part == DisplayItem::Part::GroupBegin) {
            canvas.beginGroup(item.extents.rect(), item.look.opacity, item.look.blend);
        } else {
            paintItem(item, canvas);
        }
    }
}

void LayerPainter::endGroup(const DisplayItem& item, Canvas& canvas) {
    if (!item.look.mask)
        return canvas.endGroup();
    const GradientMask& mask = *item.look.mask;
    const auto toPixels = [&](Point fraction) {
        return item.look.toPixels.apply(Point{mask.position.x + fraction.x * mask.bounds.width,
                                              mask.position.y + fraction.y * mask.bounds.height});
    };
    canvas.endGroupMasked(item.look.toPixels.apply(Rect{mask.position, mask.bounds.size()}),
                          toPixels(mask.start), toPixels(mask.end), mask.stops);
}

void LayerPainter::paintItem(const DisplayItem& item, Canvas& canvas) {
    canvas.save();
    canvas.clipRect(item.look.clip.rect());
    for (const ShapeClip& clip : item.look.shapeClips) {
        canvas.concat(clip.toPixels);
        if (clip.cornerRadius > 0)
            canvas.clipRoundedRect(clip.rect, clip.cornerRadius);
        else
            canvas.clipRect(clip.rect);
        canvas.concat(clip.toPixels.inverted());
    }
    canvas.concat(item.look.toPixels);
    if (item.part == DisplayItem::Part::Border)
        paintBorder(item, canvas);
    else
        paintBody(item, canvas);
    canvas.restore();
}

void LayerPainter::paintBody(const DisplayItem& item, Canvas& canvas) {
    const DisplayLook& look = item.look;
    if (look.shadow.opacity > 0)
        canvas.drawShadow(look.shadow.path.value_or(look.bounds), look.cornerRadius, look.shadow.radius,
                          look.shadow.offset, faded(look.shadow.color, look.shadow.opacity * look.opacity));
    if (look.backdrop && drawBackdrop_)
        drawBackdrop_(canvas, item);
    else if (look.backdrop)
        canvas.drawBackdrop(look.bounds, look.cornerRadius, *look.backdrop);
    if (look.background)
        fill(canvas, look.bounds, look.cornerRadius, faded(*look.background, look.opacity));
    if (look.masksToBounds && (look.contents || look.drawsContent || look.drawsShape)) {
        if (look.cornerRadius > 0)
            canvas.clipRoundedRect(look.bounds, look.cornerRadius);
        else
            canvas.clipRect(look.bounds);
    }
    if (look.contents)
        paintContents(item, canvas);
    if (look.drawsContent)
        paintContent(item, canvas);
    if (look.drawsShape)
        item.layer->drawShape(canvas);
}

void LayerPainter::paintContents(const DisplayItem& item, Canvas& canvas) {
    const DisplayLook& look = item.look;
    Rect rect = contentsRect(look.bounds, look.contents->size(), look.gravity);
    const auto side = [](double value) { return static_cast<int>(std::clamp(std::round(value), 1.0, 1e6)); };
    if (!look.isAligned) {
        // The picture in the size that the layer has without its transform is drawn through that.
        const auto image =
            cache_.resized(item, side(rect.width * scale_), side(rect.height * scale_), scale_);
        canvas.drawImage(*image, rect, look.opacity);
        return;
    }
    Rect pixels = look.toPixels.apply(rect);
    const int width = side(pixels.width), height = side(pixels.height);
    pixels = {std::round(pixels.x), std::round(pixels.y), static_cast<double>(width),
              static_cast<double>(height)};
    const auto image = cache_.resized(item, width, height, scale_);
    canvas.drawImage(*image, look.toPixels.inverted().apply(pixels), look.opacity);
}

void LayerPainter::paintContent(const DisplayItem& item, Canvas& canvas) {
    const DisplayLook& look = item.look;
    const auto image = cache_.content(item, scale_);
    const Rect model = item.layer->bounds();
    if (!image) {
        if (model.isEmpty())
            return;
        canvas.save();
        canvas.concat(AffineTransform::translation(-model.x, -model.y));
        canvas.concat(
            AffineTransform::scale(look.bounds.width / model.width, look.bounds.height / model.height));
        canvas.concat(AffineTransform::translation(look.bounds.x, look.bounds.y));
        item.layer->delegate()->drawContent(canvas, model);
        canvas.restore();
        return;
    }
    // The picture's last column and row may lie half outside the bounds; scaled by exactly what the pixels
    // are worth, it keeps its own pixels.
    Size size{look.bounds.width * image->pixelWidth() / (model.width * scale_),
              look.bounds.height * image->pixelHeight() / (model.height * scale_)};
    if (look.isAligned && model.size() == look.bounds.size())
        size = {image->pixelWidth() / look.toPixels.a, image->pixelHeight() / look.toPixels.d};
    canvas.drawImage(*image, {look.bounds.origin(), size}, look.opacity);
}

void LayerPainter::paintBorder(const DisplayItem& item, Canvas& canvas) {
    const DisplayLook& look = item.look;
    const double width = std::min(look.borderWidth, std::min(look.bounds.width, look.bounds.height) / 2);
    const Rect middle = look.bounds.insetBy(width / 2, width / 2);
    const Path path = look.cornerRadius > width / 2 ? Path::roundedRect(middle, look.cornerRadius - width / 2)
                                                    : Path::rect(middle);
    canvas.strokePath(path, width, LineCap::Butt, faded(look.borderColor, look.opacity));
}

} // namespace toolkit
