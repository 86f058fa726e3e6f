#include "platform/toolkit/views/UIView.h"

#include "platform/toolkit/gestures/UIGestureRecognizer.h"
#include "platform/toolkit/views/UIViewController.h"

#include <algorithm>

namespace toolkit {

namespace {

/// Below this a view is as good as invisible, and takes no touches.
constexpr double leastTouchableAlpha = 0.01;
/// Layout may mark further views; two views that mark each other for ever must not stop the turn.
constexpr int mostLayoutRounds = 10;

AffineTransform mapToScreen(const UIView& view) {
    AffineTransform map = view.layer()->toParent();
    for (const UIView* above = view.superview(); above; above = above->superview())
        map = map.then(above->layer()->toParent());
    return map;
}

AffineTransform mapBetween(const UIView& from, const UIView* to) {
    const AffineTransform map = mapToScreen(from);
    return to ? map.then(mapToScreen(*to).inverted()) : map;
}

Point intoSubview(const UIView& subview, Point point) {
    return subview.layer()->toParent().inverted().apply(point);
}

} // namespace

runtime::Class& UIView::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIView>("UIView", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIView)

UIView::UIView(Rect frame) : UIView(frame, std::make_shared<Layer>()) {}

UIView::UIView(Rect frame, std::shared_ptr<Layer> layer) : layer_(std::move(layer)) {
    layer_->setDelegate(this);
    // A new view has no former place to come from, even when it is made inside an animation block.
    AnimationEngine::shared().withoutAnimation([&] { UIView::setFrame(frame); });
}

UIView::~UIView() {
    for (const auto& recognizer : recognizers_)
        recognizer->view_ = nullptr;
    for (const auto& subview : subviews_)
        subview->superview_ = nullptr;
    layer_->setDelegate(nullptr);
    layer_->removeFromSuperlayer();
}

// ---- Geometry

Rect UIView::frame() const {
    const Rect bounds = layer_->bounds();
    if (layer_->transform().isIdentity()) {
        const Point center = layer_->position(), anchor = layer_->anchorPoint();
        return {center.x - bounds.width * anchor.x, center.y - bounds.height * anchor.y, bounds.width,
                bounds.height};
    }
    return layer_->toParent().apply(bounds);
}

void UIView::setFrame(Rect frame) {
    const Rect old = layer_->bounds();
    const AffineTransform transform = layer_->transform();
    const Size size = transform.isIdentity() ? frame.size() : transform.inverted().apply(frame.size());
    layer_->setBounds({old.origin(), size});
    layer_->setPosition(frame.center());
    if (size != old.size())
        setNeedsLayout();
}

void UIView::setBounds(Rect bounds) {
    const bool resized = bounds.size() != layer_->bounds().size();
    layer_->setBounds(bounds);
    if (resized)
        setNeedsLayout();
}

void UIView::setCenter(Point center) {
    layer_->setPosition(center);
}
void UIView::setTransform(const AffineTransform& transform) {
    layer_->setTransform(transform);
}

Size UIView::sizeThatFits(Size) const {
    return bounds().size();
}

void UIView::sizeToFit() {
    const Point origin = frame().origin();
    setBounds({bounds().origin(), sizeThatFits(bounds().size())});
    const Point moved = frame().origin(), middle = center();
    setCenter({middle.x + origin.x - moved.x, middle.y + origin.y - moved.y});
}

Point UIView::convertPointTo(Point point, const UIView* view) const {
    return view == this ? point : mapBetween(*this, view).apply(point);
}

Point UIView::convertPointFrom(Point point, const UIView* view) const {
    if (view)
        return view->convertPointTo(point, this);
    return mapToScreen(*this).inverted().apply(point);
}

Rect UIView::convertRectTo(Rect rect, const UIView* view) const {
    return view == this ? rect : mapBetween(*this, view).apply(rect);
}

// ---- Look

void UIView::setAlpha(double alpha) {
    layer_->setOpacity(alpha);
}
void UIView::setHidden(bool hidden) {
    layer_->setHidden(hidden);
}
void UIView::setBackgroundColor(std::optional<Color> color) {
    layer_->setBackgroundColor(color);
}

void UIView::animate(double duration, double delay, AnimationCurve curve,
                     const std::function<void()>& animations, AnimationCompletion completion) {
    AnimationEngine::shared().animate(duration, delay, curve, animations, std::move(completion));
}

// ---- Touches

void UIView::addGestureRecognizer(std::shared_ptr<UIGestureRecognizer> recognizer) {
    if (!recognizer || recognizer->view_ == this)
        return;
    if (UIView* former = recognizer->view_)
        former->removeGestureRecognizer(recognizer);
    recognizer->view_ = this;
    recognizers_.push_back(std::move(recognizer));
}

void UIView::removeGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer) {
    const auto found = std::find(recognizers_.begin(), recognizers_.end(), recognizer);
    if (found == recognizers_.end())
        return;
    const auto removed = std::move(*found);
    recognizers_.erase(found);
    removed->view_ = nullptr;
    removed->stopTracking();
}

UIView* UIView::hitTest(Point point) {
    if (isHidden() || !isUserInteractionEnabled() || alpha() <= leastTouchableAlpha || !pointInside(point))
        return nullptr;
    for (auto subview = subviews_.rbegin(); subview != subviews_.rend(); ++subview)
        if (UIView* hit = (*subview)->hitTest(intoSubview(**subview, point)))
            return hit;
    return this;
}

bool UIView::takesTouchAt(Point point) const {
    if (isHidden() || !isUserInteractionEnabled() || alpha() <= leastTouchableAlpha || !pointInside(point))
        return false;
    const auto background = backgroundColor();
    if ((background && !background->isClear()) || layer_->contents() || layer_->backdrop() || drawsContent())
        return true;
    return std::any_of(subviews_.begin(), subviews_.end(), [point](const auto& subview) {
        return subview->takesTouchAt(intoSubview(*subview, point));
    });
}

// ---- Tree

void UIView::addSubview(std::shared_ptr<UIView> view) {
    adopt(std::move(view), subviews_.size());
}

void UIView::insertSubview(std::shared_ptr<UIView> view, std::size_t index) {
    adopt(std::move(view), index);
}

void UIView::bringSubviewToFront(UIView& view) {
    if (view.superview_ == this && subviews_.back().get() != &view)
        placeSubview(takeOut(view), subviews_.size());
}

void UIView::sendSubviewToBack(UIView& view) {
    if (view.superview_ == this && subviews_.front().get() != &view)
        placeSubview(takeOut(view), 0);
}

/// Takes a subview and its layer out of the lists; what it is told of that is up to the caller.
std::shared_ptr<UIView> UIView::takeOut(UIView& view) {
    const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                    [&view](const auto& subview) { return subview.get() == &view; });
    if (found == subviews_.end())
        return nullptr;
    auto taken = std::move(*found);
    subviews_.erase(found);
    taken->superview_ = nullptr;
    taken->layer_->removeFromSuperlayer();
    return taken;
}

/// Puts a view and its layer into the lists. Among the layers may be some that belong to no subview.
void UIView::placeSubview(std::shared_ptr<UIView> view, std::size_t index) {
    index = std::min(index, subviews_.size());
    const auto& layers = layer_->sublayers();
    std::size_t layerIndex = layers.size();
    if (index < subviews_.size()) {
        const auto next = std::find(layers.begin(), layers.end(), subviews_[index]->layer_);
        layerIndex = static_cast<std::size_t>(next - layers.begin());
    }
    layer_->insertSublayer(view->layer_, layerIndex);
    view->superview_ = this;
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), std::move(view));
}

void UIView::adopt(std::shared_ptr<UIView> view, std::size_t index) {
    // A view above this one cannot go below it: the tree would own itself.
    if (!view || isDescendantOf(*view))
        return;
    UIView& added = *view;
    if (added.superview_ == this) {
        placeSubview(takeOut(added), index);
        return;
    }
    if (added.superview_)
        added.superview_->takeOut(added);
    placeSubview(view, index);
    setNeedsLayout();
    if (added.treeNeedsLayout())
        added.markLayoutUpwards();
    added.didMoveToSuperview();
    if (added.superview_ == this)
        didAddSubview(added);
}

void UIView::removeFromSuperview() {
    if (!superview_)
        return;
    const auto kept = superview_->takeOut(*this);
    didMoveToSuperview();
}

bool UIView::isDescendantOf(const UIView& view) const {
    for (const UIView* above = this; above; above = above->superview_)
        if (above == &view)
            return true;
    return false;
}

UIWindow* UIView::window() const {
    return superview_ ? superview_->window() : nullptr;
}

// ---- Layout

void UIView::setNeedsLayout() {
    needsLayout_ = true;
    markLayoutUpwards();
}

void UIView::markLayoutUpwards() {
    for (UIView* above = superview_; above; above = above->superview_)
        above->descendantNeedsLayout_ = true;
}

void UIView::layoutIfNeeded() {
    const auto kept = weak_from_this().lock();
    for (int round = 0; round < mostLayoutRounds && treeNeedsLayout(); ++round)
        layoutTree();
}

void UIView::layoutTree() {
    if (needsLayout_) {
        needsLayout_ = false;
        if (viewController_)
            viewController_->viewWillLayoutSubviews();
        layoutSubviews();
        if (viewController_)
            viewController_->viewDidLayoutSubviews();
    }
    if (!descendantNeedsLayout_)
        return;
    descendantNeedsLayout_ = false;
    // Layout may add and remove subviews: this round has those that stood when it began.
    const auto subviews = subviews_;
    for (const auto& subview : subviews)
        if (subview->superview_ == this)
            subview->layoutTree();
}

void UIView::setViewController(UIViewController* controller) {
    viewController_ = controller;
}

} // namespace toolkit
