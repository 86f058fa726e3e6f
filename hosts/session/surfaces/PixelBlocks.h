// A picture reduced by a whole number: the averages of its square blocks of pixels, those along the far edges
// of what is left there.
#pragma once

#include "platform/toolkit/rendering/PixelView.h"

#include <cstdint>
#include <vector>

namespace session {

class PixelBlocks {
public:
    /// Blocks of `side` × `side` pixels, or as near to that as can be.
    PixelBlocks(const toolkit::PixelView& picture, int side);

    int side() const { return side_; }
    int width() const { return width_; }
    int height() const { return height_; }
    /// As the picture has its pixels, channel by channel.
    std::uint32_t at(int x, int y) const { return averages_[indexOf(x, y)]; }

private:
    std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    int side_;
    int width_;
    int height_;
    std::vector<std::uint32_t> averages_;
};

} // namespace session
