#include "platform/toolkit/views/UIViewController.h"

namespace toolkit {

runtime::Class& UIViewController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UIViewController>("UIViewController", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIViewController)

UIViewController::UIViewController() = default;
UIViewController::~UIViewController() = default;

const std::shared_ptr<UIView>& UIViewController::view() {
    if (!view_) {
        loadView();
        if (!view_)
            setView(std::make_shared<UIView>());
        viewDidLoad();
    }
    return view_;
}

void UIViewController::loadView() {
    setView(std::make_shared<UIView>());
}

void UIViewController::setView(std::shared_ptr<UIView> view) {
    if (view == view_)
        return;
    if (view_ && view_->viewController() == this)
        view_->setViewController(nullptr);
    view_ = std::move(view);
    if (view_)
        view_->setViewController(this);
}

void UIViewController::addChildViewController(std::shared_ptr<UIViewController> child) {
    if (child && child.get() != this)
        children_.push_back(std::move(child));
}

void UIViewController::viewWillTransitionToSize(Size size, TransitionCoordinator& coordinator) {
    // Children may come and go while they are told.
    const auto children = children_;
    for (const auto& child : children)
        child->viewWillTransitionToSize(size, coordinator);
}

} // namespace toolkit
