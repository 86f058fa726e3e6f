#include "platform/homescreen/SBUIController.h"

#include "platform/homescreen/HostPort.h"
#include "platform/runtime/Message.h"

namespace homescreen {

runtime::Class& SBUIController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBUIController>("SBUIController", &Object::staticClass())
            .method("clickedMenuButton", &SBUIController::hostClickedMenuButton)
            .method("handleMenuDoubleTap", &SBUIController::hostHandleMenuDoubleTap)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBUIController)

SBUIController& SBUIController::sharedInstance() {
    static auto& controller = *new SBUIController; // never torn down
    return controller;
}

bool SBUIController::clickedMenuButton() {
    static const runtime::Message<bool()> message{"clickedMenuButton"};
    return message(*this);
}

bool SBUIController::handleMenuDoubleTap() {
    static const runtime::Message<bool()> message{"handleMenuDoubleTap"};
    return message(*this);
}

bool SBUIController::hostClickedMenuButton() {
    auto* port = HostPort::current();
    return port && port->pressHome();
}

bool SBUIController::hostHandleMenuDoubleTap() {
    auto* port = HostPort::current();
    return port && port->pressHomeTwice();
}

} // namespace homescreen
