// A picture of a layer and all below it, as the screen shows them now, without what lies beneath.
#pragma once

#include "platform/toolkit/layers/Layer.h"

#include <memory>
#include <optional>

namespace toolkit {

struct LayerSnapshot {
    std::shared_ptr<const Image> image;
    Rect frame; // of the picture, in the coordinates of the layer's parent

    /// The part within the layer's bounds at `scale` pixels a point. Nothing when there is nothing to see
    /// there, or too much of it to keep. Main thread only.
    static std::optional<LayerSnapshot> take(const std::shared_ptr<Layer>& layer, double scale);
};

} // namespace toolkit
