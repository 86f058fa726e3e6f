// The drawing interface: everything on screen goes through it. Coordinates are points in the space that the
// concatenated transforms make of the target. CairoCanvas paints, RecordingCanvas writes the commands down.
#pragma once

#include "platform/toolkit/geometry/AffineTransform.h"
#include "platform/toolkit/geometry/Color.h"
#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/rendering/Path.h"

#include <optional>
#include <vector>

namespace toolkit {

class TextLayout;

enum class LineCap { Butt, Round, Square };
enum class ImageFilter { Nearest, Smooth };

struct GradientStop {
    double location = 0; // from 0 to 1
    Color color;
    friend bool operator==(const GradientStop&, const GradientStop&) = default;
};

/// What an effect does with the picture beneath it.
enum class BackdropStyle { Dark, Light };

/// How a group's content mixes with what lies beneath it.
enum class GroupBlend { Normal, VibrancyDark, VibrancyLight };

class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void concat(const AffineTransform& transform) = 0;
    virtual void clipRect(Rect rect) = 0;
    virtual void clipRoundedRect(Rect rect, double radius) = 0;

    virtual void fillRect(Rect rect, Color color) = 0;
    virtual void fillRoundedRect(Rect rect, double radius, Color color) = 0;
    virtual void fillPath(const Path& path, Color color) = 0;
    virtual void strokePath(const Path& path, double width, LineCap cap, Color color) = 0;
    virtual void fillLinearGradient(Rect rect, Point from, Point to,
                                    const std::vector<GradientStop>& stops) = 0;
    /// Inside `radius` around `center`, clipped to `rect`.
    virtual void fillRadialGradient(Rect rect, Point center, double radius,
                                    const std::vector<GradientStop>& stops) = 0;
    virtual void drawImage(const Image& image, Rect into, double opacity,
                           ImageFilter filter = ImageFilter::Smooth) = 0;
    virtual void drawText(const TextLayout& text, Point topLeft, Color color) = 0;
    /// The shadow of a filled rounded rectangle, outside and beneath it. `blur` is its standard radius in
    /// points.
    virtual void drawShadow(Rect rect, double cornerRadius, double blur, Size offset, Color color) = 0;
    /// Replaces what has been drawn within `rect` by a blurred and tinted picture of itself.
    virtual void drawBackdrop(Rect rect, double cornerRadius, BackdropStyle style) = 0;

    /// What follows, up to endGroup, is composed by itself and then laid over the rest as one.
    virtual void beginGroup(Rect bounds, double opacity, GroupBlend blend) = 0;
    virtual void endGroup() = 0;
    /// As endGroup, multiplied by the alpha of a linear gradient over the group's bounds.
    virtual void endGroupMasked(Rect maskRect, Point from, Point to,
                                const std::vector<GradientStop>& stops) = 0;
};

} // namespace toolkit
