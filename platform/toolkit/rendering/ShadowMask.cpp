#include "platform/toolkit/rendering/ShadowMask.h"

namespace toolkit {

namespace {

// In pixels; beyond these a shadow looks no different, and would take long to make.
constexpr double largestSigma = 40;
constexpr double largestRadius = 160;
constexpr std::size_t keptSources = 16;

int reachOf(double sigma) {
    return static_cast<int>(std::ceil(3 * sigma));
}

/// From 0 to `most`, also of what is no number.
double bounded(double value, double most) {
    return value > 0 ? std::min(value, most) : 0;
}

double roundedCoverage(double x, double y, double width, double height, double radius) {
    const double dx = std::max({radius - x, x - (width - radius), 0.0});
    const double dy = std::max({radius - y, y - (height - radius), 0.0});
    if (x < 0 || y < 0 || x > width || y > height)
        return 0;
    return dx > 0 && dy > 0 ? std::clamp(radius - std::hypot(dx, dy) + 0.5, 0.0, 1.0) : 1;
}

std::vector<double> gaussian(double sigma) {
    const int reach = reachOf(sigma);
    std::vector<double> kernel(static_cast<std::size_t>(2 * reach + 1));
    double sum = 0;
    for (int i = -reach; i <= reach; ++i)
        sum += kernel[static_cast<std::size_t>(i + reach)] =
            sigma > 0 ? std::exp(-i * i / (2 * sigma * sigma)) : 1;
    for (double& weight : kernel)
        weight /= sum;
    return kernel;
}

/// One direction of the blur; the result comes out turned over the diagonal, so that two calls make a whole
/// one.
std::vector<float> blurTransposed(const std::vector<float>& in, int width, int height,
                                  const std::vector<double>& kernel) {
    const int reach = static_cast<int>(kernel.size()) / 2;
    std::vector<float> out(in.size());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            double sum = 0;
            const int from = std::max(-reach, -x), to = std::min(reach, width - 1 - x);
            for (int i = from; i <= to; ++i)
                sum += kernel[static_cast<std::size_t>(i + reach)] *
                       static_cast<double>(in[static_cast<std::size_t>(y * width + x + i)]);
            out[static_cast<std::size_t>(x * height + y)] = static_cast<float>(sum);
        }
    return out;
}

std::shared_ptr<const ShadowMask::Source> makeSource(int width, int height, double radius, double sigma) {
    auto source = std::make_shared<ShadowMask::Source>();
    const int reach = reachOf(sigma);
    const int fullWidth = width + 2 * reach, fullHeight = height + 2 * reach;
    *source = {width, height, radius, sigma, {}};
    std::vector<float> values(static_cast<std::size_t>(fullWidth) * static_cast<std::size_t>(fullHeight));
    for (int y = 0; y < fullHeight; ++y)
        for (int x = 0; x < fullWidth; ++x)
            values[static_cast<std::size_t>(y * fullWidth + x)] =
                static_cast<float>(roundedCoverage(x - reach + 0.5, y - reach + 0.5, width, height, radius));
    const std::vector<double> kernel = gaussian(sigma);
    values =
        blurTransposed(blurTransposed(values, fullWidth, fullHeight, kernel), fullHeight, fullWidth, kernel);
    source->pixels.reserve(values.size());
    for (float value : values)
        source->pixels.push_back(static_cast<std::uint8_t>(std::clamp(std::lround(value * 255), 0l, 255l)));
    return source;
}

std::shared_ptr<const ShadowMask::Source> keptSource(int width, int height, double radius, double sigma) {
    thread_local std::vector<std::shared_ptr<const ShadowMask::Source>> kept; // newest last
    for (auto it = kept.begin(); it != kept.end(); ++it) {
        const auto found = *it;
        if (found->width != width || found->height != height || found->cornerRadius != radius ||
            found->sigma != sigma)
            continue;
        kept.erase(it);
        kept.push_back(found);
        return found;
    }
    if (kept.size() >= keptSources)
        kept.erase(kept.begin());
    kept.push_back(makeSource(width, height, radius, sigma));
    return kept.back();
}

} // namespace

ShadowMask::ShadowMask(int width, int height, double cornerRadius, double sigma)
    : width_(std::max(1, width)), height_(std::max(1, height)) {
    // Quarter pixels are finer than the eye and let neighbouring sizes share.
    sigma = std::round(bounded(sigma, largestSigma) * 4) / 4;
    const double radius =
        std::round(bounded(cornerRadius, std::min({width_ / 2.0, height_ / 2.0, largestRadius})));
    reach_ = reachOf(sigma);
    // Beyond this distance from a corner the shadow of an edge no longer changes along it.
    const int longest = 2 * (reach_ + static_cast<int>(std::ceil(radius)) + reach_) + 1;
    source_ = keptSource(std::min(width_, longest), std::min(height_, longest), radius, sigma);
}

std::vector<std::uint8_t> ShadowMask::coverage(PixelRect area, int bytesPerRow) const {
    std::vector<std::uint8_t> result(static_cast<std::size_t>(bytesPerRow) *
                                     static_cast<std::size_t>(area.height));
    const int sourceWidth = source_->width + 2 * reach_, sourceHeight = source_->height + 2 * reach_;
    // Positions before the middle count from the one end, those after it from the other.
    const auto map = [this](int position, int full, int source) {
        position += reach_;
        const int half = source / 2, missing = full + 2 * reach_ - source;
        if (position <= half)
            return position;
        return position - missing <= half ? half : position - missing;
    };
    for (int y = 0; y < area.height; ++y) {
        const int sourceY = map(area.y + y, height_, sourceHeight);
        if (sourceY < 0 || sourceY >= sourceHeight)
            continue;
        const std::uint8_t* row = source_->pixels.data() + static_cast<std::ptrdiff_t>(sourceY) * sourceWidth;
        std::uint8_t* out = result.data() + static_cast<std::ptrdiff_t>(y) * bytesPerRow;
        for (int x = 0; x < area.width; ++x) {
            const int sourceX = map(area.x + x, width_, sourceWidth);
            if (sourceX >= 0 && sourceX < sourceWidth)
                out[x] = row[sourceX];
        }
    }
    return result;
}

} // namespace toolkit
