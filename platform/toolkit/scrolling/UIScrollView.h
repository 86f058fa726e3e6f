// A view on content larger than itself: drags, deceleration, bounce at the edges.
//
// The content offset is the bounds' origin. An animated offset takes 0.3 seconds and then tells the delegate;
// its model value is the target at once. The user drags only along an axis on which the content with its
// insets is larger than the bounds. When the content, the insets or the bounds change so that the offset lies
// beyond an edge, it moves to that edge at once.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/gestures/UIGestureRecognizer.h"
#include "platform/toolkit/scrolling/AxisMotion.h"
#include "platform/toolkit/views/UIView.h"

namespace toolkit {

class UIScrollView;
class UIPanGestureRecognizer;
class ScrollIndicator;
class ScrollPanGestureRecognizer;

class ScrollViewDelegate {
public:
    virtual ~ScrollViewDelegate() = default;
    /// After every change of the offset.
    virtual void scrollViewDidScroll(UIScrollView&) {}
    virtual void scrollViewWillBeginDragging(UIScrollView&) {}
    /// `velocity` is the offset's, points a second; the offset comes to rest at `targetContentOffset`, which
    /// may be changed.
    virtual void scrollViewWillEndDragging(UIScrollView&, Point /*velocity*/,
                                           Point& /*targetContentOffset*/) {}
    /// The offset has arrived; not called when something else has moved it on the way.
    virtual void scrollViewDidEndScrollingAnimation(UIScrollView&) {}
};

class UIScrollView : public UIView, private GestureRecognizerDelegate {
    RUNTIME_CLASS()
public:
    explicit UIScrollView(Rect frame = {});
    ~UIScrollView() override;

    static constexpr double scrollAnimationDuration = 0.3; // seconds

    Point contentOffset() const { return bounds().origin(); }
    /// Stops any motion. May lie beyond the edges.
    void setContentOffset(Point offset);
    void setContentOffsetAnimated(Point offset);
    Size contentSize() const { return contentSize_; }
    virtual void setContentSize(Size size);
    EdgeInsets contentInset() const { return contentInset_; }
    void setContentInset(EdgeInsets inset);
    bool isScrollEnabled() const { return scrollEnabled_; }
    /// Whether the user may drag. A drag under way is cancelled.
    void setScrollEnabled(bool enabled);
    bool showsHorizontalScrollIndicator() const { return showsHorizontal_; }
    bool showsVerticalScrollIndicator() const { return showsVertical_; }
    /// The indicators show while the user moves the content, on by default.
    void setShowsHorizontalScrollIndicator(bool shows);
    void setShowsVerticalScrollIndicator(bool shows);
    double zoomScale() const { return 1; }
    bool isDragging() const { return dragging_; }
    bool isDecelerating() const { return static_cast<bool>(motion_); }
    /// Not owned; cleared by the delegate before it goes.
    void setDelegate(ScrollViewDelegate* delegate) { delegate_ = delegate; }
    ScrollViewDelegate* delegate() const { return delegate_; }
    const std::shared_ptr<UIPanGestureRecognizer>& panGestureRecognizer() const { return pan_; }

    void setFrame(Rect frame) override;
    void setBounds(Rect bounds) override;
    void describeProperties(nlohmann::json& properties) const override;
    bool takesTouchAt(Point point) const override;
    /// While the content moves fast it takes no touches: the first one only stops it.
    UIView* hitTest(Point point) override;

private:
    friend class ScrollPanGestureRecognizer;
    struct Motion {
        AxisMotion x;
        AxisMotion y;
        double begin = 0; // run loop time
    };
    struct Limits {
        Point low;
        Point high;
        bool horizontal = false; // whether the user may drag along it
        bool vertical = false;
    };
    bool gestureRecognizerShouldBegin(UIGestureRecognizer& recognizer) override;
    void handlePan(UIPanGestureRecognizer& pan);
    void beginDragging(const UIPanGestureRecognizer& pan);
    void drag(const UIPanGestureRecognizer& pan);
    void endDragging(Point velocity);
    void fingerDown();
    void fingerUp();
    void startDeceleration(Point velocity);
    void motionTick(double now);
    void stopMotion();
    void moveOffset(Point offset);
    void limitsChanged();
    void offsetChanged();
    void showIndicators();
    void hideIndicators();
    void updateIndicators();
    Limits limits() const;
    Point clampedOffset(Point offset) const;
    Point roundedToPixel(Point offset) const;
    Point velocityNow() const;

    Size contentSize_;
    EdgeInsets contentInset_;
    bool scrollEnabled_ = true;
    bool showsHorizontal_ = true;
    bool showsVertical_ = true;
    bool dragging_ = false;
    Point dragStartOffset_;      // where the finger would have the offset, were there no edges
    Point dragStartTranslation_; // of the pan, where dragging began
    ScrollViewDelegate* delegate_ = nullptr;
    std::shared_ptr<UIPanGestureRecognizer> pan_;
    std::unique_ptr<ScrollIndicator> horizontalIndicator_; // once shown
    std::unique_ptr<ScrollIndicator> verticalIndicator_;
    foundation::Handle motion_;
    Motion motionState_;
    /// Counts what ends a motion or an animated offset, so that either notices that it has been overtaken.
    unsigned generation_ = 0;
    bool animatingOffset_ = false;
};

} // namespace toolkit
