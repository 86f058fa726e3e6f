// A rectangle on screen that draws, lays out its subviews and takes touches.
//
// State is bounds, centre and transform (about the centre); frame() is the bounding box of the transformed
// bounds, in the superview's coordinates, points. A superview owns its subviews. Getters answer model values
// while animations run. Main thread only.
#pragma once

#include "platform/runtime/Class.h"
#include "platform/toolkit/animation/Animation.h"
#include "platform/toolkit/layers/Layer.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace toolkit {

class UIGestureRecognizer;
class UIViewController;
class UIWindow;
class Touch;

class UIView : public runtime::Object, public LayerDelegate {
    RUNTIME_CLASS()
public:
    explicit UIView(Rect frame = {});
    ~UIView() override;

    // Geometry.
    Rect frame() const;
    virtual void setFrame(Rect frame);
    Rect bounds() const { return layer_->bounds(); }
    virtual void setBounds(Rect bounds);
    Point center() const { return layer_->position(); }
    virtual void setCenter(Point center);
    AffineTransform transform() const { return layer_->transform(); }
    virtual void setTransform(const AffineTransform& transform);
    /// The size that fits the content, within `size` where the content can adapt.
    virtual Size sizeThatFits(Size size) const;
    /// Sets the bounds' size to what fits; the frame's origin stays.
    void sizeToFit();

    /// Between this view's coordinates and another's; null stands for the screen.
    Point convertPointTo(Point point, const UIView* view) const;
    Point convertPointFrom(Point point, const UIView* view) const;
    Rect convertRectTo(Rect rect, const UIView* view) const;

    // Look.
    double alpha() const { return layer_->opacity(); }
    virtual void setAlpha(double alpha);
    bool isHidden() const { return layer_->isHidden(); }
    virtual void setHidden(bool hidden);
    virtual std::optional<Color> backgroundColor() const { return layer_->backgroundColor(); }
    virtual void setBackgroundColor(std::optional<Color> color);
    bool clipsToBounds() const { return layer_->masksToBounds(); }
    void setClipsToBounds(bool clips) { layer_->setMasksToBounds(clips); }
    const std::shared_ptr<Layer>& layer() const { return layer_; }

    // Touches.
    virtual bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
    virtual void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
    void addGestureRecognizer(std::shared_ptr<UIGestureRecognizer> recognizer);
    void removeGestureRecognizer(const std::shared_ptr<UIGestureRecognizer>& recognizer);
    const std::vector<std::shared_ptr<UIGestureRecognizer>>& gestureRecognizers() const {
        return recognizers_;
    }
    /// The deepest view that takes a touch at `point` (own coordinates), or null.
    virtual UIView* hitTest(Point point);
    virtual bool pointInside(Point point) const { return bounds().contains(point); }
    /// Whether something touchable is seen at `point`: a background that is not fully clear, content, or a
    /// subview of which that is true. Decides which window a touch goes to.
    virtual bool takesTouchAt(Point point) const;
    virtual void touchesBegan(const Touch&) {}
    virtual void touchesMoved(const Touch&) {}
    virtual void touchesEnded(const Touch&) {}
    virtual void touchesCancelled(const Touch&) {}

    // Tree.
    const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
    UIView* superview() const { return superview_; }
    virtual void addSubview(std::shared_ptr<UIView> view);
    void insertSubview(std::shared_ptr<UIView> view, std::size_t index);
    void bringSubviewToFront(UIView& view);
    void sendSubviewToBack(UIView& view);
    void removeFromSuperview();
    bool isDescendantOf(const UIView& view) const;
    /// The window at the root of the tree (itself, for a window), or null.
    virtual UIWindow* window() const;
    virtual void didMoveToSuperview() {}
    virtual void didAddSubview(UIView&) {}

    // Layout. A changed bounds size, a new subview or setNeedsLayout() marks the view; marked views get
    // layoutSubviews() once, top down, at the end of the turn or at layoutIfNeeded().
    virtual void layoutSubviews() {}
    void setNeedsLayout();
    void layoutIfNeeded();
    bool needsLayout() const { return needsLayout_; }
    /// Whether layoutIfNeeded() has anything to do: the view or one below it is marked.
    bool treeNeedsLayout() const { return needsLayout_ || descendantNeedsLayout_; }
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool autoresizes) { autoresizesSubviews_ = autoresizes; }

    // Drawing.
    void setNeedsDisplay() { layer_->setNeedsDisplay(); }
    bool drawsContent() const override { return false; }
    void drawContent(Canvas&, Rect) override {}

    static void animate(double duration, double delay, AnimationCurve curve,
                        const std::function<void()>& animations, AnimationCompletion completion = {});
    /// Cross-fades from what the view shows now to what it shows after `changes`.
    static void transitionCrossDissolve(UIView& view, double duration, const std::function<void()>& changes,
                                        AnimationCompletion completion = {});

    /// The class's own public properties by name, for state dumps; overriders add to what the base answers.
    /// A plain view has none: what every view has is described by whoever asks.
    virtual void describeProperties(nlohmann::json&) const {}

    UIViewController* viewController() const { return viewController_.get(); }
    void setViewController(UIViewController* controller);

protected:
    UIView(Rect frame, std::shared_ptr<Layer> layer);

private:
    friend class UIWindow;
    void markLayoutUpwards();
    void layoutTree();
    void adopt(std::shared_ptr<UIView> view, std::size_t index);
    std::shared_ptr<UIView> takeOut(UIView& view);
    void placeSubview(std::shared_ptr<UIView> view, std::size_t index);

    std::shared_ptr<Layer> layer_;
    std::vector<std::shared_ptr<UIView>> subviews_;
    UIView* superview_ = nullptr;
    std::vector<std::shared_ptr<UIGestureRecognizer>> recognizers_;
    runtime::WeakPtr<UIViewController> viewController_;
    bool userInteractionEnabled_ = true;
    bool autoresizesSubviews_ = true;
    bool needsLayout_ = true;
    bool descendantNeedsLayout_ = true;
};

} // namespace toolkit
