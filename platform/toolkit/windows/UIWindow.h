// A tree of views laid over the screen at a level of its own.
//
// Windows are ordered by level, then by when they were shown. A window is on the screen from its creation to
// its end; it is created hidden (see setHidden). The creator owns it. Coordinates of its frame are the
// screen's.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

class UIViewController;

class UIWindow : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIWindow(Rect frame = {});
    ~UIWindow() override;

    double windowLevel() const { return windowLevel_; }
    void setWindowLevel(double level);
    /// Showing a hidden window puts it in front of the others of its level.
    void setHidden(bool hidden) override;
    const std::shared_ptr<UIViewController>& rootViewController() const { return rootViewController_; }
    /// The controller's view becomes a subview; the former root's view leaves.
    void setRootViewController(std::shared_ptr<UIViewController> controller);
    void makeKeyWindow();
    void makeKeyAndVisible();
    /// Whether the window may lie over the lock screen.
    virtual bool _shouldCreateContextAsSecure() const { return false; }

    UIWindow* window() const override { return const_cast<UIWindow*>(this); }
    /// Lays the root view over the bounds.
    void layoutSubviews() override;

    /// Counts up with every showing; orders windows of one level.
    std::uint64_t shownOrder() const { return shownOrder_; }

private:
    friend class WindowServer;
    double windowLevel_ = 0;
    std::uint64_t shownOrder_ = 0;
    std::shared_ptr<UIViewController> rootViewController_;
};

} // namespace toolkit
