#include "platform/toolkit/scrolling/ScrollIndicator.h"

#include "platform/toolkit/animation/Animation.h"

#include <algorithm>

namespace toolkit {

namespace {
/// Seen on light and on dark content.
const Color indicatorColor = Color::white(0.5, 0.7);
constexpr double squeezedLength = 7; // points, of a bar whose content is far beyond its edge
} // namespace

ScrollIndicator::ScrollIndicator(Layer& scrolled, Direction direction)
    : scrolled_(scrolled), direction_(direction), layer_(std::make_shared<Layer>()) {
    layer_->setBackgroundColor(indicatorColor);
    layer_->setCornerRadius(thickness / 2);
    layer_->setOpacity(0);
}

ScrollIndicator::~ScrollIndicator() {
    layer_->removeFromSuperlayer();
}

void ScrollIndicator::update(double begin, double end) {
    const Rect visible = scrolled_.bounds();
    const bool vertical = direction_ == Direction::Vertical;
    const double offset = vertical ? visible.y : visible.x;
    const double extent = vertical ? visible.height : visible.width;
    const double track = extent - 2 * edgeDistance;
    if (!(track > shortestLength && end - begin > 0))
        return;
    const double whole = std::max(shortestLength, track * std::min(1.0, extent / (end - begin)));
    const double way = std::max(1.0, end - begin - extent);
    const double progress = (offset - begin) / way;
    // Beyond an edge the bar is squeezed by as much as the content has gone too far.
    const double beyond = std::max({0.0, begin - offset, offset + extent - end});
    const double length = std::max(squeezedLength, whole - beyond);
    const double start = offset + edgeDistance + std::clamp(progress, 0.0, 1.0) * (track - length);
    if (vertical) {
        layer_->setBounds({0, 0, thickness, length});
        layer_->setPosition({visible.maxX() - edgeDistance - thickness / 2, start + length / 2});
    } else {
        layer_->setBounds({0, 0, length, thickness});
        layer_->setPosition({start + length / 2, visible.maxY() - edgeDistance - thickness / 2});
    }
}

void ScrollIndicator::show() {
    shown_ = true;
    // Again on top of the subviews, some of which may have come since.
    if (scrolled_.sublayers().empty() || scrolled_.sublayers().back() != layer_) {
        layer_->removeFromSuperlayer();
        scrolled_.addSublayer(layer_);
    }
    layer_->setOpacity(1);
}

void ScrollIndicator::hide() {
    if (!shown_)
        return;
    shown_ = false;
    AnimationEngine::shared().animate(
        fadeDuration, fadeDelay, AnimationCurve::EaseInOut, [this] { layer_->setOpacity(0); }, [](bool) {});
}

} // namespace toolkit
