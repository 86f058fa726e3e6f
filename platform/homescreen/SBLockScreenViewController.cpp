#include "platform/homescreen/SBLockScreenViewController.h"

#include "platform/homescreen/HostPort.h"
#include "platform/runtime/Message.h"

namespace homescreen {

runtime::Class& SBLockScreenViewController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBLockScreenViewController>("SBLockScreenViewController",
                                                          &UIViewController::staticClass())
            .method("_handleDisplayTurnedOff", &SBLockScreenViewController::hostHandleDisplayTurnedOff)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBLockScreenViewController)

void SBLockScreenViewController::_handleDisplayTurnedOff() {
    static const runtime::Message<void()> message{"_handleDisplayTurnedOff"};
    message(*this);
}

void SBLockScreenViewController::hostHandleDisplayTurnedOff() {
    if (auto* port = HostPort::current())
        port->displayTurnedOff();
}

} // namespace homescreen
