#include "platform/toolkit/layers/LayerSnapshot.h"

#include "platform/toolkit/layers/DisplayListBuilder.h"
#include "platform/toolkit/layers/LayerPainter.h"
#include "platform/toolkit/rendering/CairoCanvas.h"

namespace toolkit {

std::optional<LayerSnapshot> LayerSnapshot::take(const std::shared_ptr<Layer>& layer, double scale) {
    const auto bounds = std::get<Rect>(layer->presented(LayerProperty::Bounds));
    const PixelRect area = PixelRect::around(
        AffineTransform::scale(scale, scale).apply(layer->presentedToParent().apply(bounds)));
    if (area.isEmpty() || area.area() > ContentCache::largestPicture)
        return std::nullopt;

    std::vector<DisplayItem> items;
    DisplayListBuilder(area, scale).build({layer}, items);
    if (items.empty())
        return std::nullopt;
    const int bytesPerRow = area.width * 4;
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(bytesPerRow) *
                                     static_cast<std::size_t>(area.height));
    {
        CairoCanvas canvas({pixels.data(), area.width, area.height, bytesPerRow, area.x, area.y}, scale);
        canvas.concat(AffineTransform::scale(1 / scale, 1 / scale));
        ContentCache contents;
        LayerPainter(contents, scale).paint(items, 0, items.size(), area, canvas);
    }
    const Rect device = area.rect();
    return LayerSnapshot{
        std::make_shared<const Image>(area.width, area.height, bytesPerRow, std::move(pixels), scale),
        {device.x / scale, device.y / scale, device.width / scale, device.height / scale}};
}

} // namespace toolkit
