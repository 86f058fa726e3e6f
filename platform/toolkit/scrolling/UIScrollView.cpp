#include "platform/toolkit/scrolling/UIScrollView.h"

#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/scrolling/ScrollIndicator.h"
#include "platform/toolkit/scrolling/ScrollPanGestureRecognizer.h"
#include "platform/toolkit/scrolling/ScrollPhysics.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <cmath>

namespace toolkit {

namespace {
/// Content slower than this, in points a second, takes touches although it still creeps.
constexpr double touchableVelocity = 50;

Point operator+(Point a, Point b) {
    return {a.x + b.x, a.y + b.y};
}
Point operator-(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}

double withRubberBand(double offset, double low, double high, double extent) {
    const double inside = std::clamp(offset, low, high);
    return inside + rubberBand(offset - inside, extent);
}

double withoutRubberBand(double offset, double low, double high, double extent) {
    const double inside = std::clamp(offset, low, high);
    return inside + rubberBandFinger(offset - inside, extent);
}

/// The velocity that carries content from `offset` to `target`.
double velocityTo(double target, double offset) {
    return (target - offset) / scrollTravel(1);
}
} // namespace

runtime::Class& UIScrollView::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIScrollView>("UIScrollView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIScrollView)

UIScrollView::UIScrollView(Rect frame) : UIView(frame) {
    setClipsToBounds(true);
    pan_ = std::make_shared<ScrollPanGestureRecognizer>(*this);
    pan_->addHandler([self = runtime::WeakPtr<UIScrollView>(this)](UIGestureRecognizer& recognizer) {
        if (self)
            self->handlePan(static_cast<UIPanGestureRecognizer&>(recognizer));
    });
    pan_->setDelegate(this, this);
    addGestureRecognizer(pan_);
}

UIScrollView::~UIScrollView() = default;

// Offset

void UIScrollView::setContentOffset(Point offset) {
    if (!std::isfinite(offset.x) || !std::isfinite(offset.y))
        return;
    stopMotion();
    if (dragging_)
        dragStartOffset_ = dragStartOffset_ + (offset - contentOffset());
    moveOffset(offset);
}

void UIScrollView::setContentOffsetAnimated(Point offset) {
    if (!std::isfinite(offset.x) || !std::isfinite(offset.y))
        return;
    stopMotion();
    animatingOffset_ = true;
    const unsigned generation = generation_;
    UIView::animate(
        scrollAnimationDuration, 0, AnimationCurve::EaseInOut, [&] { moveOffset(offset); },
        [self = runtime::WeakPtr<UIScrollView>(this), generation](bool) {
            // A change of the bounds' size ends the animation early, but the offset has arrived all the same.
            if (!self || self->generation_ != generation)
                return;
            self->animatingOffset_ = false;
            if (self->delegate_)
                self->delegate_->scrollViewDidEndScrollingAnimation(*self.get());
        });
}

void UIScrollView::moveOffset(Point offset) {
    setBounds({offset, bounds().size()});
}

void UIScrollView::setFrame(Rect frame) {
    // A frame that is only moved, or set again, leaves an animated offset alone.
    if (frame.size() == this->frame().size()) {
        setCenter(frame.center());
        return;
    }
    UIView::setFrame(frame);
    limitsChanged();
}

void UIScrollView::setBounds(Rect bounds) {
    const Rect before = this->bounds();
    UIView::setBounds(bounds);
    const runtime::WeakPtr<UIScrollView> self(this);
    if (bounds.origin() != before.origin())
        offsetChanged();
    if (self && bounds.size() != before.size())
        limitsChanged();
}

void UIScrollView::offsetChanged() {
    updateIndicators();
    if (delegate_)
        delegate_->scrollViewDidScroll(*this);
}

// Edges

void UIScrollView::setContentSize(Size size) {
    if (size == contentSize_)
        return;
    contentSize_ = size;
    limitsChanged();
}

void UIScrollView::setContentInset(EdgeInsets inset) {
    if (inset == contentInset_)
        return;
    contentInset_ = inset;
    limitsChanged();
}

UIScrollView::Limits UIScrollView::limits() const {
    const Size visible = bounds().size();
    const double right = contentSize_.width + contentInset_.right - visible.width;
    const double bottom = contentSize_.height + contentInset_.bottom - visible.height;
    Limits limits;
    limits.low = {-contentInset_.left, -contentInset_.top};
    limits.high = {std::max(limits.low.x, right), std::max(limits.low.y, bottom)};
    limits.horizontal = right > limits.low.x;
    limits.vertical = bottom > limits.low.y;
    return limits;
}

Point UIScrollView::clampedOffset(Point offset) const {
    const Limits edges = limits();
    return {std::clamp(offset.x, edges.low.x, edges.high.x), std::clamp(offset.y, edges.low.y, edges.high.y)};
}

/// Content that rests or moves between pixels would be blurred; what is within the edges stays there.
Point UIScrollView::roundedToPixel(Point offset) const {
    const double scale = UIScreen::mainScreen().scale();
    const Point rounded{std::round(offset.x * scale) / scale, std::round(offset.y * scale) / scale};
    const Point inside = clampedOffset(offset);
    const Point insideRounded = clampedOffset(rounded);
    return {offset.x == inside.x ? insideRounded.x : rounded.x,
            offset.y == inside.y ? insideRounded.y : rounded.y};
}

void UIScrollView::limitsChanged() {
    if (dragging_)
        return; // the drag's end brings the content back within its edges
    if (isDecelerating()) {
        startDeceleration(velocityNow());
        return;
    }
    const Point offset = clampedOffset(contentOffset());
    if (offset != contentOffset())
        moveOffset(offset);
}

// Dragging

void UIScrollView::setScrollEnabled(bool enabled) {
    scrollEnabled_ = enabled;
    pan_->setEnabled(enabled);
}

bool UIScrollView::gestureRecognizerShouldBegin(UIGestureRecognizer&) {
    const Limits edges = limits();
    const Point moved = pan_->translationInView(this);
    return std::abs(moved.x) > std::abs(moved.y) ? edges.horizontal : edges.vertical;
}

void UIScrollView::handlePan(UIPanGestureRecognizer& pan) {
    switch (pan.state()) {
    case GestureState::Began:
        beginDragging(pan);
        break;
    case GestureState::Changed:
        drag(pan);
        break;
    case GestureState::Ended: {
        const Point finger = pan.velocityInView(this);
        endDragging({-finger.x, -finger.y});
        break;
    }
    case GestureState::Cancelled:
        endDragging({});
        break;
    default:
        break;
    }
}

void UIScrollView::beginDragging(const UIPanGestureRecognizer& pan) {
    if (animatingOffset_) {
        // The finger takes hold of what it sees.
        const Point shown = std::get<Rect>(layer()->presented(LayerProperty::Bounds)).origin();
        stopMotion();
        moveOffset(shown);
    }
    stopMotion();
    dragging_ = true;
    showIndicators();
    const Limits edges = limits();
    const Point offset = contentOffset();
    const Size extent = bounds().size();
    dragStartOffset_ = {withoutRubberBand(offset.x, edges.low.x, edges.high.x, extent.width),
                        withoutRubberBand(offset.y, edges.low.y, edges.high.y, extent.height)};
    // The way that it took to tell a drag from a tap moves nothing, or the content would jump.
    const Point moved = pan.translationInView(this);
    const double distance = std::hypot(moved.x, moved.y);
    const double share = distance > 0 ? std::min(1.0, UIPanGestureRecognizer::beginDistance / distance) : 0;
    dragStartTranslation_ = {moved.x * share, moved.y * share};
    const runtime::WeakPtr<UIScrollView> self(this);
    if (delegate_)
        delegate_->scrollViewWillBeginDragging(*this);
    if (self)
        drag(pan);
}

void UIScrollView::drag(const UIPanGestureRecognizer& pan) {
    if (!dragging_)
        return;
    const Limits edges = limits();
    const Size extent = bounds().size();
    const Point wanted = dragStartOffset_ - (pan.translationInView(this) - dragStartTranslation_);
    Point offset = contentOffset();
    if (edges.horizontal)
        offset.x = withRubberBand(wanted.x, edges.low.x, edges.high.x, extent.width);
    if (edges.vertical)
        offset.y = withRubberBand(wanted.y, edges.low.y, edges.high.y, extent.height);
    moveOffset(roundedToPixel(offset));
}

void UIScrollView::endDragging(Point velocity) {
    if (!dragging_)
        return;
    const Limits edges = limits();
    velocity = {edges.horizontal ? velocity.x : 0, edges.vertical ? velocity.y : 0};
    const Point offset = contentOffset();
    const Point target = clampedOffset(offset + Point{scrollTravel(velocity.x), scrollTravel(velocity.y)});
    Point wanted = target;
    const unsigned generation = generation_;
    const runtime::WeakPtr<UIScrollView> self(this);
    if (delegate_)
        delegate_->scrollViewWillEndDragging(*this, velocity, wanted);
    if (!self)
        return;
    dragging_ = false;
    if (generation != generation_) { // the delegate has put the content somewhere itself
        hideIndicators();
        return;
    }
    if (wanted.x != target.x)
        velocity.x = velocityTo(std::clamp(wanted.x, edges.low.x, edges.high.x), offset.x);
    if (wanted.y != target.y)
        velocity.y = velocityTo(std::clamp(wanted.y, edges.low.y, edges.high.y), offset.y);
    startDeceleration(velocity);
}

void UIScrollView::fingerDown() {
    if (isDecelerating())
        stopMotion();
}

void UIScrollView::fingerUp() {
    if (!dragging_ && !isDecelerating() && !animatingOffset_ &&
        contentOffset() != clampedOffset(contentOffset()))
        startDeceleration({});
}

// Motion

void UIScrollView::startDeceleration(Point velocity) {
    stopMotion();
    const Limits edges = limits();
    const Point offset = contentOffset();
    auto& loop = foundation::RunLoop::main();
    motionState_ = {AxisMotion(offset.x, velocity.x, edges.low.x, edges.high.x),
                    AxisMotion(offset.y, velocity.y, edges.low.y, edges.high.y), loop.now()};
    if (motionState_.x.restTime() <= 0 && motionState_.y.restTime() <= 0) {
        hideIndicators();
        return;
    }
    showIndicators();
    motion_ = loop.addDisplayLink([self = runtime::WeakPtr<UIScrollView>(this)](double now) {
        if (self)
            self->motionTick(now);
    });
}

void UIScrollView::motionTick(double now) {
    const double elapsed = now - motionState_.begin;
    const bool rests = elapsed >= motionState_.x.restTime() && elapsed >= motionState_.y.restTime();
    const Point offset{motionState_.x.offsetAfter(elapsed), motionState_.y.offsetAfter(elapsed)};
    if (rests)
        stopMotion();
    moveOffset(roundedToPixel(offset));
}

void UIScrollView::stopMotion() {
    ++generation_;
    animatingOffset_ = false;
    if (!isDecelerating())
        return;
    motion_.reset();
    if (!dragging_)
        hideIndicators();
}

Point UIScrollView::velocityNow() const {
    if (!isDecelerating())
        return {};
    const double elapsed = foundation::RunLoop::main().now() - motionState_.begin;
    return {motionState_.x.velocityAfter(elapsed), motionState_.y.velocityAfter(elapsed)};
}

// Indicators

void UIScrollView::setShowsHorizontalScrollIndicator(bool shows) {
    showsHorizontal_ = shows;
    if (!shows)
        horizontalIndicator_.reset();
}

void UIScrollView::setShowsVerticalScrollIndicator(bool shows) {
    showsVertical_ = shows;
    if (!shows)
        verticalIndicator_.reset();
}

void UIScrollView::showIndicators() {
    using Direction = ScrollIndicator::Direction;
    const Limits edges = limits();
    if (showsHorizontal_ && edges.horizontal && !horizontalIndicator_)
        horizontalIndicator_ = std::make_unique<ScrollIndicator>(*layer(), Direction::Horizontal);
    if (showsVertical_ && edges.vertical && !verticalIndicator_)
        verticalIndicator_ = std::make_unique<ScrollIndicator>(*layer(), Direction::Vertical);
    updateIndicators();
    if (horizontalIndicator_ && edges.horizontal)
        horizontalIndicator_->show();
    if (verticalIndicator_ && edges.vertical)
        verticalIndicator_->show();
}

void UIScrollView::hideIndicators() {
    if (horizontalIndicator_)
        horizontalIndicator_->hide();
    if (verticalIndicator_)
        verticalIndicator_->hide();
}

void UIScrollView::updateIndicators() {
    if (horizontalIndicator_)
        horizontalIndicator_->update(-contentInset_.left, contentSize_.width + contentInset_.right);
    if (verticalIndicator_)
        verticalIndicator_->update(-contentInset_.top, contentSize_.height + contentInset_.bottom);
}

// Touches

bool UIScrollView::takesTouchAt(Point point) const {
    return const_cast<UIScrollView*>(this)->hitTest(point) != nullptr;
}

UIView* UIScrollView::hitTest(Point point) {
    UIView* hit = UIView::hitTest(point);
    const Point velocity = velocityNow();
    if (hit && std::hypot(velocity.x, velocity.y) > touchableVelocity)
        return this;
    return hit;
}

} // namespace toolkit
