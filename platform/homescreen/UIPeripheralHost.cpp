#include "platform/homescreen/UIPeripheralHost.h"

#include "platform/homescreen/HostPort.h"

namespace homescreen {

toolkit::Rect UIPeripheralHost::visiblePeripheralFrame() {
    auto* port = HostPort::current();
    return port ? port->visibleKeyboardFrame() : toolkit::Rect();
}

} // namespace homescreen
