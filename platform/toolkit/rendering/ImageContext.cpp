#include "platform/toolkit/rendering/ImageContext.h"

#include "platform/toolkit/rendering/CairoCanvas.h"
#include "platform/toolkit/rendering/ImageFile.h"

#include <cmath>

namespace toolkit {

namespace {

int pixelSide(double points, double scale) {
    const double side = std::ceil(points * scale - 1e-6);
    return side >= 1 ? static_cast<int>(std::min(side, 32000.0)) : 1;
}

} // namespace

ImageContext::ImageContext(Size size, bool opaque, double scale)
    : width_(pixelSide(size.width, scale)), height_(pixelSide(size.height, scale)), scale_(scale) {
    if (static_cast<std::int64_t>(width_) * height_ > maximumImagePixels)
        height_ = static_cast<int>(std::max<std::int64_t>(1, maximumImagePixels / width_));
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4);
    if (opaque)
        for (std::size_t i = 3; i < pixels_.size(); i += 4)
            pixels_[i] = 255;
}

void ImageContext::draw(const Image& image, Rect rect, BlendMode mode, double alpha) {
    if (rect.isEmpty())
        return;
    const auto reducedSide = [this](double points, int source) {
        return static_cast<int>(std::clamp(std::round(points * scale_), 1.0, static_cast<double>(source)));
    };
    const int width = reducedSide(rect.width, image.pixelWidth());
    const int height = reducedSide(rect.height, image.pixelHeight());
    const bool plain = quality_ == InterpolationQuality::None;
    std::shared_ptr<const Image> reduced;
    if (!plain && (width < image.pixelWidth() || height < image.pixelHeight()))
        reduced = image.reducedTo(width, height);
    const Image& source = reduced ? *reduced : image;
    const ImageFilter filter = plain ? ImageFilter::Nearest : ImageFilter::Smooth;
    CairoCanvas canvas({pixels_.data(), width_, height_, width_ * 4}, scale_);
    if (mode == BlendMode::Copy)
        canvas.replaceWithImage(source, rect, alpha, filter);
    else
        canvas.drawImage(source, rect, alpha, filter);
}

std::array<std::uint8_t, 4> ImageContext::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_)
        return {};
    const std::uint8_t* at = pixels_.data() + (static_cast<std::ptrdiff_t>(y) * width_ + x) * 4;
    return {at[0], at[1], at[2], at[3]};
}

std::shared_ptr<const Image> ImageContext::image() const {
    return std::make_shared<const Image>(width_, height_, width_ * 4, pixels_, scale_);
}

} // namespace toolkit
