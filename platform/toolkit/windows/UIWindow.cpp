#include "platform/toolkit/windows/UIWindow.h"

#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/WindowServer.h"

namespace toolkit {

runtime::Class& UIWindow::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIWindow>("UIWindow", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIWindow)

UIWindow::UIWindow(Rect frame) : UIView(frame) {
    UIView::setHidden(true);
    WindowServer::shared().add(*this);
}

UIWindow::~UIWindow() {
    WindowServer::shared().remove(*this);
}

void UIWindow::setWindowLevel(double level) {
    if (level == windowLevel_)
        return;
    windowLevel_ = level;
    Layer::noteChange();
}

void UIWindow::setHidden(bool hidden) {
    if (isHidden() && !hidden)
        shownOrder_ = WindowServer::shared().nextShownOrder();
    UIView::setHidden(hidden);
}

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller) {
    if (controller == rootViewController_)
        return;
    if (rootViewController_ && rootViewController_->isViewLoaded() &&
        rootViewController_->view()->superview() == this)
        rootViewController_->view()->removeFromSuperview();
    rootViewController_ = std::move(controller);
    if (rootViewController_)
        addSubview(rootViewController_->view());
}

void UIWindow::makeKeyWindow() {
    WindowServer::shared().setKeyWindow(this);
}

void UIWindow::makeKeyAndVisible() {
    makeKeyWindow();
    setHidden(false);
}

void UIWindow::layoutSubviews() {
    if (rootViewController_ && rootViewController_->isViewLoaded())
        rootViewController_->view()->setFrame(bounds());
}

} // namespace toolkit
