#include "platform/toolkit/layers/Layer.h"

#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/animation/Animation.h"
#include "platform/toolkit/layers/LayerAnimations.h"

#include <algorithm>

namespace toolkit {

namespace {

std::uint64_t lastId = 0;
std::uint64_t changes = 0;

AffineTransform mapToParent(const Rect& bounds, Point position, Point anchorPoint,
                            const AffineTransform& transform) {
    return AffineTransform::translation(-(bounds.x + anchorPoint.x * bounds.width),
                                        -(bounds.y + anchorPoint.y * bounds.height))
        .then(transform)
        .then(AffineTransform::translation(position.x, position.y));
}

} // namespace

Layer::Layer() : id_(++lastId) {}

Layer::~Layer() {
    if (animations_)
        AnimationEngine::shared().layerWillDisappear(*this);
    for (const auto& sublayer : sublayers_)
        sublayer->superlayer_ = nullptr;
}

std::uint64_t Layer::changeCount() {
    return changes;
}
void Layer::noteChange() {
    ++changes;
}

// A set to the model's own value changes nothing, unless an animation shows another one: then the set takes
// over.
bool Layer::takesNewValue(bool differs) const {
    return differs || hasAnimations();
}

void Layer::setBounds(Rect bounds) {
    if (!takesNewValue(bounds != bounds_))
        return;
    willSet(LayerProperty::Bounds, bounds);
    if (bounds == bounds_)
        return;
    if (bounds.size() != bounds_.size())
        ++contentVersion_;
    bounds_ = bounds;
    noteChange();
}

void Layer::setPosition(Point position) {
    if (!takesNewValue(position != position_))
        return;
    willSet(LayerProperty::Position, position);
    if (position == position_)
        return;
    position_ = position;
    noteChange();
}

void Layer::setAnchorPoint(Point anchorPoint) {
    if (anchorPoint == anchorPoint_)
        return;
    anchorPoint_ = anchorPoint;
    noteChange();
}

void Layer::setTransform(const AffineTransform& transform) {
    if (!takesNewValue(transform != transform_))
        return;
    willSet(LayerProperty::Transform, transform);
    if (transform == transform_)
        return;
    transform_ = transform;
    noteChange();
}

AffineTransform Layer::toParent() const {
    return mapToParent(bounds_, position_, anchorPoint_, transform_);
}

AffineTransform Layer::presentedToParent() const {
    if (!hasAnimations())
        return toParent();
    const double angle = std::get<double>(presented(LayerProperty::Rotation));
    const auto transform = std::get<AffineTransform>(presented(LayerProperty::Transform));
    return mapToParent(std::get<Rect>(presented(LayerProperty::Bounds)),
                       std::get<Point>(presented(LayerProperty::Position)), anchorPoint_,
                       angle == 0 ? transform : AffineTransform::rotation(angle).then(transform));
}

void Layer::setOpacity(double opacity) {
    if (!takesNewValue(opacity != opacity_))
        return;
    willSet(LayerProperty::Opacity, opacity);
    if (opacity == opacity_)
        return;
    opacity_ = opacity;
    noteChange();
}

void Layer::setHidden(bool hidden) {
    if (hidden == hidden_)
        return;
    hidden_ = hidden;
    noteChange();
}

void Layer::setBackgroundColor(std::optional<Color> color) {
    if (!takesNewValue(color != backgroundColor_))
        return;
    willSet(LayerProperty::BackgroundColor, color.value_or(Color::clear()));
    if (color == backgroundColor_)
        return;
    backgroundColor_ = color;
    noteChange();
}

void Layer::setCornerRadius(double radius) {
    if (!takesNewValue(radius != cornerRadius_))
        return;
    willSet(LayerProperty::CornerRadius, radius);
    if (radius == cornerRadius_)
        return;
    cornerRadius_ = radius;
    noteChange();
}

void Layer::setMasksToBounds(bool masks) {
    if (masks == masksToBounds_)
        return;
    masksToBounds_ = masks;
    noteChange();
}

void Layer::setBorder(double width, Color color) {
    if (!takesNewValue(width != borderWidth_ || color != borderColor_))
        return;
    willSet(LayerProperty::BorderColor, color);
    if (width == borderWidth_ && color == borderColor_)
        return;
    borderWidth_ = width;
    borderColor_ = color;
    noteChange();
}

void Layer::setShadow(const Shadow& shadow) {
    if (!takesNewValue(shadow != shadow_))
        return;
    willSet(LayerProperty::ShadowOpacity, shadow.opacity);
    if (shadow == shadow_)
        return;
    shadow_ = shadow;
    noteChange();
}

void Layer::setMask(std::optional<GradientMask> mask) {
    if (mask == mask_)
        return;
    mask_ = std::move(mask);
    noteChange();
}

void Layer::setMaskPosition(Point position) {
    if (!mask_ || position == mask_->position)
        return;
    mask_->position = position;
    noteChange();
}

void Layer::setMaskBounds(Rect bounds) {
    if (!mask_ || bounds == mask_->bounds)
        return;
    mask_->bounds = bounds;
    noteChange();
}

void Layer::setBackdrop(std::optional<BackdropStyle> style) {
    if (style == backdrop_)
        return;
    backdrop_ = style;
    noteChange();
}

void Layer::setGroupBlend(GroupBlend blend) {
    if (blend == groupBlend_)
        return;
    groupBlend_ = blend;
    noteChange();
}

void Layer::setContents(std::shared_ptr<const Image> image) {
    if (image == contents_)
        return;
    contents_ = std::move(image);
    setNeedsDisplay();
}

void Layer::setContentGravity(ContentGravity gravity) {
    if (gravity == contentGravity_)
        return;
    contentGravity_ = gravity;
    noteChange();
}

void Layer::setDelegate(LayerDelegate* delegate) {
    if (delegate == delegate_)
        return;
    delegate_ = delegate;
    setNeedsDisplay();
}

void Layer::setNeedsDisplay() {
    ++contentVersion_;
    noteChange();
}

void Layer::addSublayer(std::shared_ptr<Layer> layer) {
    insertSublayer(std::move(layer), sublayers_.size());
}

void Layer::insertSublayer(std::shared_ptr<Layer> layer, std::size_t index) {
    if (!layer || layer.get() == this)
        return;
    layer->removeFromSuperlayer();
    layer->superlayer_ = this;
    index = std::min(index, sublayers_.size());
    sublayers_.insert(sublayers_.begin() + static_cast<std::ptrdiff_t>(index), std::move(layer));
    noteChange();
}

void Layer::removeFromSuperlayer() {
    if (!superlayer_)
        return;
    auto& siblings = superlayer_->sublayers_;
    superlayer_ = nullptr;
    const auto self = std::find_if(siblings.begin(), siblings.end(),
                                   [this](const auto& layer) { return layer.get() == this; });
    // The list's may be the last reference: it is let go only when nothing here needs the layer any more.
    std::shared_ptr<Layer> kept;
    if (self != siblings.end()) {
        kept = std::move(*self);
        siblings.erase(self);
    }
    noteChange();
}

void Layer::addAnimation(const std::string& key, const BasicAnimation& animation) {
    AnimationEngine::shared().addKeyed(*this, key, animation);
}

void Layer::removeAnimation(const std::string& key) {
    AnimationEngine::shared().removeKeyed(*this, key);
}

bool Layer::hasAnimations() const {
    return animations_ && !animations_->running().empty();
}

LayerAnimations& Layer::ensureAnimations() {
    if (!animations_)
        animations_ = std::make_unique<LayerAnimations>();
    return *animations_;
}

AnimatableValue Layer::model(LayerProperty property) const {
    switch (property) {
    case LayerProperty::Bounds:
        return bounds_;
    case LayerProperty::Position:
        return position_;
    case LayerProperty::Transform:
        return transform_;
    case LayerProperty::Opacity:
        return opacity_;
    case LayerProperty::BackgroundColor:
        return backgroundColor_.value_or(Color::clear());
    case LayerProperty::CornerRadius:
        return cornerRadius_;
    case LayerProperty::ShadowOpacity:
        return shadow_.opacity;
    case LayerProperty::BorderColor:
        return borderColor_;
    case LayerProperty::StrokeEnd:
        return 1.0;
    case LayerProperty::StrokeStart:
    case LayerProperty::Rotation:
    case LayerProperty::Count:
        break;
    }
    return 0.0;
}

AnimatableValue Layer::presented(LayerProperty property) const {
    if (hasAnimations())
        if (auto shown = animations_->value(property, foundation::RunLoop::main().now()))
            return *shown;
    return model(property);
}

void Layer::willSet(LayerProperty property, const AnimatableValue& newValue) {
    AnimationEngine::shared().layerWillSet(*this, property, newValue);
}

} // namespace toolkit
