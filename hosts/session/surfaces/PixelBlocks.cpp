#include "hosts/session/surfaces/PixelBlocks.h"

#include <algorithm>

namespace session {

namespace {

/// The sum of so large a block's values fits into sixteen bits.
constexpr int longestSide = 16;

/// Two channels at a time, each in sixteen bits.
std::uint32_t average(const toolkit::PixelView& picture, int left, int top, int side) {
    constexpr std::uint32_t twoChannels = 0x00FF00FF;
    const int width = std::min(side, picture.width - left), height = std::min(side, picture.height - top);
    std::uint32_t even = 0, odd = 0;
    for (int y = top; y < top + height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(picture.at(left, y));
        for (int x = 0; x < width; ++x) {
            even += row[x] & twoChannels;
            odd += row[x] >> 8 & twoChannels;
        }
    }
    const auto count = static_cast<std::uint32_t>(width * height);
    const auto share = [count](std::uint32_t sum) { return ((sum & 0xFFFF) + count / 2) / count; };
    return share(even) | share(odd) << 8 | share(even >> 16) << 16 | share(odd >> 16) << 24;
}

} // namespace

PixelBlocks::PixelBlocks(const toolkit::PixelView& picture, int side)
    : side_(std::clamp(side, 1, longestSide)),
      width_((picture.width + side_ - 1) / side_),
      height_((picture.height + side_ - 1) / side_),
      averages_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {
    for (int y = 0; y < height_; ++y)
        for (int x = 0; x < width_; ++x)
            averages_[indexOf(x, y)] = average(picture, x * side_, y * side_, side_);
}

} // namespace session
