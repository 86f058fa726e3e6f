// A node of the retained picture: geometry, look and content of one rectangle, and its sublayers.
//
// Every getter answers the model value; presented() answers what the screen shows now, half-way through an
// animation too. A parent owns its sublayers, sublayers know their parent. Content that a delegate draws is
// painted once into a cached picture and only again after setNeedsDisplay() or a change of size. Main thread
// only. Coordinates are points in the parent's space unless said otherwise.
#pragma once

#include "platform/toolkit/animation/BasicAnimation.h"
#include "platform/toolkit/layers/LayerProperty.h"
#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/rendering/Image.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace toolkit {

class LayerAnimations;

/// Draws a layer's content; implemented by the view that owns the layer.
class LayerDelegate {
public:
    virtual ~LayerDelegate() = default;
    /// False for a layer that shows nothing but its own background, border and shadow.
    virtual bool drawsContent() const = 0;
    /// Draws in the layer's own coordinates: (0, 0) is the top left corner of its bounds' rectangle less the
    /// bounds' origin, that is, `bounds` itself.
    virtual void drawContent(Canvas& canvas, Rect bounds) = 0;
};

struct Shadow {
    Color color = Color::black();
    double opacity = 0;
    double radius = 3;
    Size offset{0, -3};
    /// What casts it, in the layer's own coordinates; without one the layer's bounds.
    std::optional<Rect> path = std::nullopt;
    friend bool operator==(const Shadow&, const Shadow&) = default;
};

/// A linear gradient whose alpha multiplies a layer's picture.
struct GradientMask {
    Rect bounds;         // in the masked layer's own coordinates
    Point position;      // of the bounds' top left corner
    Point start{0.5, 0}; // in fractions of the bounds
    Point end{0.5, 1};
    std::vector<GradientStop> stops;
    friend bool operator==(const GradientMask&, const GradientMask&) = default;
};

enum class ContentGravity { Resize, AspectFit, AspectFill, Center };

class Layer : public std::enable_shared_from_this<Layer> {
public:
    Layer();
    virtual ~Layer();
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    // Geometry.
    Rect bounds() const { return bounds_; }
    void setBounds(Rect bounds);
    Point position() const { return position_; }
    void setPosition(Point position);
    Point anchorPoint() const { return anchorPoint_; } // in fractions of the bounds
    void setAnchorPoint(Point anchorPoint);
    AffineTransform transform() const { return transform_; }
    void setTransform(const AffineTransform& transform);
    /// Maps this layer's coordinates to its parent's.
    AffineTransform toParent() const;

    // Look.
    double opacity() const { return opacity_; }
    void setOpacity(double opacity);
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    const std::optional<Color>& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(std::optional<Color> color);
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);
    bool masksToBounds() const { return masksToBounds_; }
    void setMasksToBounds(bool masks);
    double borderWidth() const { return borderWidth_; }
    Color borderColor() const { return borderColor_; }
    void setBorder(double width, Color color);
    const Shadow& shadow() const { return shadow_; }
    void setShadow(const Shadow& shadow);
    const std::optional<GradientMask>& mask() const { return mask_; }
    void setMask(std::optional<GradientMask> mask);
    /// Moves or resizes the mask, if there is one, and costs nothing more. A mask is never animated.
    void setMaskPosition(Point position);
    void setMaskBounds(Rect bounds);
    /// A blurred, tinted picture of what lies beneath, instead of a background.
    std::optional<BackdropStyle> backdrop() const { return backdrop_; }
    void setBackdrop(std::optional<BackdropStyle> style);
    GroupBlend groupBlend() const { return groupBlend_; }
    void setGroupBlend(GroupBlend blend);

    // Content.
    const std::shared_ptr<const Image>& contents() const { return contents_; }
    void setContents(std::shared_ptr<const Image> image);
    ContentGravity contentGravity() const { return contentGravity_; }
    void setContentGravity(ContentGravity gravity);
    /// Not owned; cleared by the delegate before it goes.
    LayerDelegate* delegate() const { return delegate_; }
    void setDelegate(LayerDelegate* delegate);
    void setNeedsDisplay();
    /// Counts the changes of content, so that a cached picture can tell whether it is still right.
    std::uint64_t contentVersion() const { return contentVersion_; }
    /// What a subclass (a shape, say) draws over background and contents, each time afresh from presented
    /// values; the base class draws nothing.
    virtual bool drawsShape() const { return false; }
    virtual void drawShape(Canvas&) const {}

    // Tree.
    const std::vector<std::shared_ptr<Layer>>& sublayers() const { return sublayers_; }
    Layer* superlayer() const { return superlayer_; }
    void addSublayer(std::shared_ptr<Layer> layer);
    void insertSublayer(std::shared_ptr<Layer> layer, std::size_t index);
    void removeFromSuperlayer();

    // Animation.
    using BasicAnimation = toolkit::BasicAnimation;
    /// Shows `animation` over the model value, which stays; one under the same key is replaced.
    void addAnimation(const std::string& key, const BasicAnimation& animation);
    void removeAnimation(const std::string& key);
    bool hasAnimations() const;
    /// The running animations; null when there never was one.
    LayerAnimations* animations() const { return animations_.get(); }
    LayerAnimations& ensureAnimations();

    /// A property's model value, and the value that the screen shows now.
    virtual AnimatableValue model(LayerProperty property) const;
    AnimatableValue presented(LayerProperty property) const;
    /// As toParent(), with presented values.
    AffineTransform presentedToParent() const;

    /// Grows with every change of anything on any layer; a frame is due when it differs from the last one's.
    static std::uint64_t changeCount();
    static void noteChange();

    /// Unique in the process's life.
    std::uint64_t id() const { return id_; }

protected:
    /// To be called by every setter of an animatable property, before the new value is stored: lets a running
    /// animation block record the change, and ends the property's running animations otherwise.
    void willSet(LayerProperty property, const AnimatableValue& newValue);

private:
    bool takesNewValue(bool differs) const;

    std::uint64_t id_;
    Rect bounds_;
    Point position_;
    Point anchorPoint_{0.5, 0.5};
    AffineTransform transform_;
    double opacity_ = 1;
    bool hidden_ = false;
    std::optional<Color> backgroundColor_;
    double cornerRadius_ = 0;
    bool masksToBounds_ = false;
    double borderWidth_ = 0;
    Color borderColor_;
    Shadow shadow_;
    std::optional<GradientMask> mask_;
    std::optional<BackdropStyle> backdrop_;
    GroupBlend groupBlend_ = GroupBlend::Normal;
    std::shared_ptr<const Image> contents_;
    ContentGravity contentGravity_ = ContentGravity::Resize;
    LayerDelegate* delegate_ = nullptr;
    std::uint64_t contentVersion_ = 1;
    std::vector<std::shared_ptr<Layer>> sublayers_;
    Layer* superlayer_ = nullptr;
    std::unique_ptr<LayerAnimations> animations_;
};

} // namespace toolkit
