// A view on content larger than itself: drags, deceleration, bounce at the edges.
//
// The content offset is the bounds' origin. An animated offset takes 0.3 seconds and then tells the delegate.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/views/UIView.h"

namespace toolkit {

class UIScrollView;
class UIPanGestureRecognizer;

class ScrollViewDelegate {
public:
    virtual ~ScrollViewDelegate() = default;
    virtual void scrollViewDidScroll(UIScrollView&) {}
    virtual void scrollViewWillBeginDragging(UIScrollView&) {}
    virtual void scrollViewWillEndDragging(UIScrollView&, Point /*velocity*/, Point& /*targetContentOffset*/) {}
    virtual void scrollViewDidEndScrollingAnimation(UIScrollView&) {}
};

class UIScrollView : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIScrollView(Rect frame = {});
    ~UIScrollView() override;

    Point contentOffset() const { return bounds().origin(); }
    void setContentOffset(Point offset);
    void setContentOffsetAnimated(Point offset);
    Size contentSize() const { return contentSize_; }
    virtual void setContentSize(Size size);
    EdgeInsets contentInset() const { return contentInset_; }
    void setContentInset(EdgeInsets inset);
    bool isScrollEnabled() const { return scrollEnabled_; }
    void setScrollEnabled(bool enabled);
    bool showsHorizontalScrollIndicator() const { return showsHorizontal_; }
    bool showsVerticalScrollIndicator() const { return showsVertical_; }
    void setShowsHorizontalScrollIndicator(bool shows) { showsHorizontal_ = shows; }
    void setShowsVerticalScrollIndicator(bool shows) { showsVertical_ = shows; }
    double zoomScale() const { return 1; }
    bool isDragging() const { return dragging_; }
    bool isDecelerating() const { return static_cast<bool>(motion_); }
    /// Not owned; cleared by the delegate before it goes.
    void setDelegate(ScrollViewDelegate* delegate) { delegate_ = delegate; }
    ScrollViewDelegate* delegate() const { return delegate_; }
    const std::shared_ptr<UIPanGestureRecognizer>& panGestureRecognizer() const { return pan_; }

    void setBounds(Rect bounds) override;
    bool takesTouchAt(Point point) const override;

private:
    struct Axis;
    void handlePan(UIPanGestureRecognizer& pan);
    void startDeceleration(Point velocity);
    void stopMotion();
    Point clampedOffset(Point offset) const;

    Size contentSize_;
    EdgeInsets contentInset_;
    bool scrollEnabled_ = true;
    bool showsHorizontal_ = true;
    bool showsVertical_ = true;
    bool dragging_ = false;
    Point dragStartOffset_;
    ScrollViewDelegate* delegate_ = nullptr;
    std::shared_ptr<UIPanGestureRecognizer> pan_;
    foundation::Handle motion_;
};

} // namespace toolkit
