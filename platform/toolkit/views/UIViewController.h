// Owns a view and follows the screen's rotation.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

/// Interface orientations as a mask: bit n for orientation n.
inline constexpr unsigned orientationMaskPortrait = 1u << 1;
inline constexpr unsigned orientationMaskAll = 30;
inline constexpr unsigned orientationMaskAllButUpsideDown = 26;

/// Runs blocks along with a change of the screen's size.
class TransitionCoordinator {
public:
    virtual ~TransitionCoordinator() = default;
    /// `alongside` runs within the transition's animation, `completion` (may be empty) at its end.
    virtual void animateAlongside(std::function<void()> alongside, std::function<void()> completion) = 0;
};

class UIViewController : public runtime::Object {
    RUNTIME_CLASS()
public:
    UIViewController();
    ~UIViewController() override;

    /// Made on first use by loadView().
    const std::shared_ptr<UIView>& view();
    bool isViewLoaded() const { return view_ != nullptr; }
    /// Sets the view; a plain one unless overridden.
    virtual void loadView();
    virtual void viewDidLoad() {}
    void setView(std::shared_ptr<UIView> view);

    // Told by whoever brings the view to the screen; overriders call the base.
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    virtual void viewWillDisappear(bool /*animated*/) {}
    // Around every layoutSubviews() of the view.
    virtual void viewWillLayoutSubviews() {}
    virtual void viewDidLayoutSubviews() {}

    void addChildViewController(std::shared_ptr<UIViewController> child);
    const std::vector<std::shared_ptr<UIViewController>>& childViewControllers() const { return children_; }

    virtual bool shouldAutorotate() const { return true; }
    virtual unsigned supportedInterfaceOrientations() const { return orientationMaskAllButUpsideDown; }
    /// Passes the news on to the children; overriders call it.
    virtual void viewWillTransitionToSize(Size size, TransitionCoordinator& coordinator);

private:
    std::shared_ptr<UIView> view_;
    std::vector<std::shared_ptr<UIViewController>> children_;
};

} // namespace toolkit
