// One thing to be drawn: a layer's own picture, its border, or one end of a group. Private to the compositor.
#pragma once

#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/rendering/PixelView.h"

namespace toolkit {

/// A clip that is no rectangle of whole pixels.
struct ShapeClip {
    AffineTransform toPixels; // from the masking layer's coordinates
    Rect rect;
    double cornerRadius = 0;
    friend bool operator==(const ShapeClip&, const ShapeClip&) = default;
};

/// Everything that decides which pixels an item makes, copied, so that it can be compared with the last
/// frame's.
struct DisplayLook {
    AffineTransform
        toPixels;           // from the layer's coordinates, moved to whole pixels where that keeps its scale
    bool isAligned = false; // whether it is such a move
    Rect bounds;
    PixelRect clip;
    std::vector<ShapeClip> shapeClips;
    double opacity = 1;
    std::optional<Color> background;
    double cornerRadius = 0;
    double borderWidth = 0;
    Color borderColor;
    Shadow shadow; // its opacity is 0 where none is drawn
    std::optional<BackdropStyle> backdrop;
    std::shared_ptr<const Image> contents;
    ContentGravity gravity = ContentGravity::Resize;
    bool masksToBounds = false;
    bool drawsContent = false;
    bool drawsShape = false;
    std::uint64_t contentVersion = 0;
    double strokeStart = 0;
    double strokeEnd = 0;
    GroupBlend blend = GroupBlend::Normal;
    std::optional<GradientMask> mask;
    friend bool operator==(const DisplayLook&, const DisplayLook&) = default;
};

struct DisplayItem {
    enum class Part { Body, Border, GroupBegin, GroupEnd };

    std::uint64_t layerId = 0;
    Part part = Part::Body;
    DisplayLook look;
    PixelRect extents;            // all pixels that it can touch
    const Layer* layer = nullptr; // alive only while the frame is composed
    std::size_t root = 0;         // index of the tree that it belongs to
    std::size_t groupEnd = 0;     // index of the matching end, of a beginning
    int groupDepth = 0;           // groups around it

    bool isSameThing(const DisplayItem& other) const {
        return layerId == other.layerId && part == other.part;
    }
    bool looksLike(const DisplayItem& other) const { return extents == other.extents && look == other.look; }
};

} // namespace toolkit
