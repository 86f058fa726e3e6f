// The trees at the back that stand still, kept as one flat picture.
//
// While panels move over a home screen, the home screen is copied from here instead of being drawn again.
#pragma once

#include "platform/toolkit/layers/DisplayListChanges.h"

#include <functional>

namespace toolkit {

class FlatPrefix {
public:
    /// Paints the items from `begin` to `end` over what the picture shows already.
    using Painter = std::function<void(const PixelView& target, std::size_t begin, std::size_t end)>;

    void reset(int width, int height);
    /// Takes a frame's changes in, and draws trees that have stood still for long enough into the picture.
    /// `before` and `after` are the identities of the trees that the frames are made of.
    void update(const std::vector<std::uint64_t>& roots, const std::vector<DisplayItem>& items,
                const DisplayListChanges& changes, const Painter& paint);

    /// The first item that is not in the picture; 0 when there is no picture.
    std::size_t itemCount() const { return itemCount_; }
    void copyTo(const PixelView& target, const PixelRect& area) const;

private:
    struct Root {
        std::uint64_t id = 0;
        int stillFrames = 0;
        int neededFrames = 2; // doubled each time that the picture had to be given up for this tree
    };
    void noteRoots(const std::vector<std::uint64_t>& roots, const std::vector<DisplayItem>& items,
                   const DisplayListChanges& changes);
    PixelView view();

    int width_ = 0;
    int height_ = 0;
    std::vector<Root> roots_;
    std::size_t rootCount_ = 0; // trees in the picture
    std::size_t itemCount_ = 0;
    std::vector<std::uint8_t> pixels_;
};

} // namespace toolkit
