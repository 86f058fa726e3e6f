#include "platform/toolkit/layers/ContentCache.h"

#include "platform/toolkit/layers/DisplayListBuilder.h"

#include <algorithm>

namespace toolkit {

namespace {

constexpr std::size_t budgetBytes = 160u * 1024 * 1024;
constexpr int longestSide = 32000;

std::size_t bytesOf(const Image& image) {
    return image.pixels().size();
}

/// Smaller by more than a half, so that mixing four neighbours would skip pixels.
bool needsAveraging(const Image& image, int width, int height) {
    return image.pixelWidth() > 2 * width || image.pixelHeight() > 2 * height;
}

} // namespace

ContentCache::Entry& ContentCache::entry(const DisplayItem& item, Kind kind) {
    Entry& found = entries_[item.layerId * 2 + static_cast<std::uint64_t>(kind)];
    found.lastUse = frame_;
    return found;
}

std::shared_ptr<const Image> ContentCache::content(const DisplayItem& item, double scale) {
    // The model's size: while an animation moves the bounds, the finished picture is stretched along.
    const Rect bounds = item.layer->bounds();
    const PixelRect pixels = contentPixels(bounds.size(), scale);
    if (pixels.isEmpty() || pixels.area() > largestPicture || pixels.width > longestSide ||
        pixels.height > longestSide)
        return nullptr;
    Entry& kept = entry(item, Kind::Content);
    if (!kept.image || kept.contentVersion != item.look.contentVersion || kept.size != bounds.size() ||
        kept.scale != scale) {
        kept.image = Image::draw(bounds.size(), scale, [&](Canvas& canvas) {
            canvas.concat(AffineTransform::translation(-bounds.x, -bounds.y));
            item.layer->delegate()->drawContent(canvas, bounds);
        });
        kept.contentVersion = item.look.contentVersion;
        kept.size = bounds.size();
        kept.scale = scale;
    }
    return kept.image;
}

std::shared_ptr<const Image> ContentCache::resized(const DisplayItem& item, int width, int height,
                                                   double scale) {
    const std::shared_ptr<const Image>& source = item.look.contents;
    const bool fits = source->pixelWidth() == width && source->pixelHeight() == height;
    const bool tooLarge = static_cast<std::int64_t>(width) * height > largestPicture || width > longestSide ||
                          height > longestSide || width < 1 || height < 1;
    if (fits || tooLarge)
        return source;
    Entry& kept = entry(item, Kind::Resized);
    if (kept.image && kept.source == source && kept.image->pixelWidth() == width &&
        kept.image->pixelHeight() == height)
        return kept.image;
    const Size size{static_cast<double>(width), static_cast<double>(height)};
    kept.source = source;
    kept.image = needsAveraging(*source, width, height) ? source->reducedTo(width, height)
                                                        : Image::draw(size, 1, [&](Canvas& canvas) {
                                                              canvas.drawImage(*source, {{0, 0}, size}, 1);
                                                          });
    kept.scale = scale;
    return kept.image;
}

void ContentCache::trim() {
    std::size_t total = 0;
    for (const auto& [key, entry] : entries_)
        total += entry.image ? bytesOf(*entry.image) : 0;
    if (total > budgetBytes) {
        std::vector<std::pair<std::uint64_t, std::uint64_t>> byUse; // last use, key
        for (const auto& [key, entry] : entries_)
            if (entry.lastUse != frame_)
                byUse.emplace_back(entry.lastUse, key);
        std::sort(byUse.begin(), byUse.end());
        for (const auto& [use, key] : byUse) {
            if (total <= budgetBytes)
                break;
            const auto found = entries_.find(key);
            total -= found->second.image ? bytesOf(*found->second.image) : 0;
            entries_.erase(found);
        }
    }
    ++frame_;
}

} // namespace toolkit
