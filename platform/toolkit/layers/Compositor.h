// Composes layer trees into one picture of the screen, and paints again only what changed.
//
// Each frame the trees are flattened into a list of what is to be drawn; the difference to the last frame's
// list is the damage, and only that is painted. Trees in front of which nothing moves are kept as one flat
// picture. Main thread only.
#pragma once

#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/rendering/PixelView.h"

#include <functional>
#include <memory>
#include <vector>

namespace toolkit {

struct DisplayItem;

/// What a picture is painted on: a screen is black, a surface that lies over others is clear.
enum class Ground { Black, Clear };

class Compositor {
public:
    explicit Compositor(Ground ground = Ground::Black);
    ~Compositor();

    struct Frame {
        /// In pixels, not overlapping; empty when nothing changed.
        std::vector<Rect> damage;
        double paintedPixels() const;
    };

    /// The trees, back to front, that make up a screen of `size` points at `scale` pixels a point. Positions
    /// of the root layers are in the screen's coordinates.
    Frame compose(const std::vector<std::shared_ptr<Layer>>& roots, Size size, double scale);

    /// The pixels of a picture of `size` points: the nearest whole number of them, within bounds.
    static PixelRect pixelsOf(Size size, double scale);
    /// As compose(), for a list that the caller has built for a picture of those pixels, and whose contents
    /// it gives away.
    Frame composeItems(std::vector<DisplayItem>& items, Size size, double scale);

    /// The picture as composed last. Its pixels stay valid until the next compose(); blue, green, red, alpha.
    const std::uint8_t* pixels() const;
    int pixelWidth() const;
    int pixelHeight() const;
    int bytesPerRow() const;
    /// A copy of the picture, or null before the first frame.
    std::shared_ptr<const Image> image() const;

    /// Frames that painted something since the start.
    std::uint64_t paintedFrames() const;

private:
    /// The roots' identities, for a screen, of which the part that stands still is kept; null for a list
    /// alone.
    Frame composeList(std::vector<DisplayItem>& items, const std::vector<std::uint64_t>* rootIds, Size size,
                      double scale);

    struct State;
    std::unique_ptr<State> state_;
};

} // namespace toolkit
