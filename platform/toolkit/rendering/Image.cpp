#include "platform/toolkit/rendering/Image.h"

#include "platform/toolkit/rendering/CairoCanvas.h"
#include "platform/toolkit/rendering/ImageFile.h"

#include <cmath>
#include <cstring>
#include <stdexcept>

namespace toolkit {

namespace {

/// Which source pixels one target pixel stands for along one axis, and how much of the outer two.
struct Span {
    int first;
    int count;
    double firstWeight;
    double lastWeight;
    double weight(int i) const { return i == 0 ? firstWeight : (i == count - 1 ? lastWeight : 1); }
};

std::vector<Span> spans(int source, int target) {
    std::vector<Span> result(static_cast<std::size_t>(target));
    const double step = static_cast<double>(source) / target;
    for (int i = 0; i < target; ++i) {
        const double from = i * step, to = std::min<double>(source, (i + 1) * step);
        const int first = std::min(source - 1, static_cast<int>(from));
        const int last = std::max(first, std::min(source, static_cast<int>(std::ceil(to))) - 1);
        Span span{first, last - first + 1, 0, 0};
        if (span.count == 1) {
            span.firstWeight = span.lastWeight = std::max(to - from, 1e-9);
        } else {
            span.firstWeight = first + 1 - from;
            span.lastWeight = to - last;
        }
        result[static_cast<std::size_t>(i)] = span;
    }
    return result;
}

} // namespace

Image::Image(int width, int height, int bytesPerRow, std::vector<std::uint8_t> pixels, double scale)
    : width_(width),
      height_(height),
      bytesPerRow_(bytesPerRow),
      scale_(scale > 0 ? scale : 1),
      pixels_(std::move(pixels)) {
    const bool fits =
        width > 0 && height > 0 && bytesPerRow % 4 == 0 && bytesPerRow / 4 >= width &&
        pixels_.size() / static_cast<std::size_t>(height) >= static_cast<std::size_t>(bytesPerRow);
    if (!fits)
        throw std::invalid_argument("an image's pixels do not fit its size");
}

std::shared_ptr<const Image> Image::draw(Size size, double scale, const std::function<void(Canvas&)>& draw) {
    // The largest side that the painting library takes, well below where its coordinates overflow.
    constexpr double longestSide = 32000;
    const auto side = [&](double points) {
        return static_cast<int>(std::clamp(std::ceil(points * scale - 1e-6), 1.0, longestSide));
    };
    int width = side(size.width), height = side(size.height);
    if (static_cast<std::int64_t>(width) * height > maximumImagePixels)
        height = static_cast<int>(std::max<std::int64_t>(1, maximumImagePixels / width));
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    {
        CairoCanvas canvas({pixels.data(), width, height, width * 4}, scale);
        draw(canvas);
    }
    return std::make_shared<const Image>(width, height, width * 4, std::move(pixels), scale);
}

std::shared_ptr<const Image> Image::reducedTo(int width, int height) const {
    width = std::clamp(width, 1, 32000);
    height = static_cast<int>(
        std::clamp<std::int64_t>(height, 1, std::min<std::int64_t>(32000, maximumImagePixels / width)));
    const std::vector<Span> columns = spans(width_, width), rows = spans(height_, height);
    std::vector<std::uint8_t> result(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    const std::size_t rowValues = static_cast<std::size_t>(width_) * 4;
    std::vector<float> rowSums(rowValues); // one target row's source rows, added up
    std::uint8_t* out = result.data();
    for (const Span& row : rows) {
        std::fill(rowSums.begin(), rowSums.end(), 0.f);
        for (int y = 0; y < row.count; ++y) {
            const std::uint8_t* source =
                pixels_.data() + static_cast<std::ptrdiff_t>(row.first + y) * bytesPerRow_;
            const float weight = static_cast<float>(row.weight(y));
            for (std::size_t i = 0; i < rowValues; ++i)
                rowSums[i] += weight * source[i];
        }
        const double rowWeight =
            row.count == 1 ? row.firstWeight : row.firstWeight + row.lastWeight + row.count - 2;
        for (const Span& column : columns) {
            double sums[4] = {};
            double total = 0;
            for (int x = 0; x < column.count; ++x) {
                const double weight = column.weight(x);
                const float* values = rowSums.data() + static_cast<std::ptrdiff_t>(column.first + x) * 4;
                for (int channel = 0; channel < 4; ++channel)
                    sums[channel] += weight * values[channel];
                total += weight;
            }
            for (double sum : sums)
                *out++ =
                    static_cast<std::uint8_t>(std::clamp(std::lround(sum / (total * rowWeight)), 0l, 255l));
        }
    }
    return std::make_shared<const Image>(width, height, width * 4, std::move(result), scale_);
}

} // namespace toolkit
