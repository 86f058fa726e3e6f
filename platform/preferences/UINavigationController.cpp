#include "platform/preferences/UINavigationController.h"

#include <algorithm>

namespace preferences {

runtime::Class& UINavigationController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UINavigationController>("UINavigationController", &Object::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UINavigationController)

std::shared_ptr<PSViewController> UINavigationController::topViewController() const {
    return viewControllers_.empty() ? nullptr : viewControllers_.back();
}

void UINavigationController::pushViewController(std::shared_ptr<PSViewController> controller, bool animated) {
    if (!controller ||
        std::find(viewControllers_.begin(), viewControllers_.end(), controller) != viewControllers_.end())
        return;
    if (const auto covered = topViewController())
        covered->viewWillDisappear(animated);
    viewControllers_.push_back(controller);
    controller->navigationController_ = this;
    bringUp(controller, Change::Push, animated);
}

void UINavigationController::popViewControllerAnimated(bool animated) {
    if (viewControllers_.size() < 2)
        return;
    const auto leaving = viewControllers_.back();
    leaving->viewWillDisappear(animated);
    viewControllers_.pop_back();
    leaving->navigationController_ = nullptr;
    bringUp(viewControllers_.back(), Change::Pop, animated);
}

void UINavigationController::setContentSize(toolkit::Size size) {
    if (size == contentSize_)
        return;
    contentSize_ = size;
    if (const auto top = topViewController())
        layOut(*top);
}

void UINavigationController::layOut(PSViewController& controller) const {
    if (contentSize_.isEmpty())
        return; // the host has not measured its window yet
    controller.view()->setFrame({{}, contentSize_});
    controller.view()->layoutIfNeeded();
}

void UINavigationController::bringUp(const std::shared_ptr<PSViewController>& controller, Change change,
                                     bool animated) {
    const auto kept = controller; // a handler may pop it
    kept->viewWillAppear(animated);
    layOut(*kept);
    if (changed_)
        changed_(change, animated);
    kept->viewDidAppear(animated);
}

} // namespace preferences
