#include "vela/panels/UIImageAverageColor.h"

#include "platform/toolkit/rendering/ImageContext.h"

using toolkit::Color;
using toolkit::Image;

namespace vela {

Color mergedColor(const Image& image) {
    toolkit::ImageContext context({1, 1}, false, 1);
    context.setInterpolationQuality(toolkit::InterpolationQuality::Medium);
    context.draw(image, {0, 0, 1, 1}, toolkit::BlendMode::Copy, 1);
    const auto pixel = context.pixel(0, 0);
    return Color::rgba(pixel[2] / 255.0f, pixel[1] / 255.0f, pixel[0] / 255.0f);
}

Color averageColor(const Image& image) {
    std::uint32_t sums[3] = {0, 0, 0};
    const auto pixels = image.pixels();
    const int bytesPerPixel = Image::bitsPerPixel / 8;
    for (int y = 0; y < image.pixelHeight(); ++y)
        for (int x = 0; x < image.pixelWidth(); ++x)
            for (int byte = 0; byte < 3; ++byte)
                sums[byte] +=
                    pixels[static_cast<std::size_t>(y) * image.bytesPerRow() + x * bytesPerPixel + byte];
    const float factor =
        1.0f / (static_cast<float>(image.pixelHeight()) * (static_cast<float>(image.pixelWidth()) * 255.0f));
    return Color::rgba(static_cast<float>(sums[0]) * factor, static_cast<float>(sums[1]) * factor,
                       static_cast<float>(sums[2]) * factor);
}

} // namespace vela
