#include "platform/homescreen/SBHUDController.h"

#include "platform/homescreen/HostPort.h"
#include "platform/runtime/Message.h"

namespace homescreen {

runtime::Class& SBHUDController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBHUDController>("SBHUDController", &Object::staticClass())
            .method("presentHUDView:autoDismissWithDelay:", &SBHUDController::hostPresentHUDView)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBHUDController)

SBHUDController& SBHUDController::sharedHUDController() {
    static auto& controller = *new SBHUDController; // never torn down
    return controller;
}

void SBHUDController::presentHUDView(const std::shared_ptr<toolkit::UIView>& view, double delay) {
    static const runtime::Message<void(std::shared_ptr<toolkit::UIView>, double)> message{
        "presentHUDView:autoDismissWithDelay:"};
    message(*this, view, delay);
}

void SBHUDController::hostPresentHUDView(std::shared_ptr<toolkit::UIView> view, double delay) {
    if (auto* port = HostPort::current())
        port->presentHud(view, delay);
}

} // namespace homescreen
