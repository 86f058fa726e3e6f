#include "platform/homescreen/ScreenCapture.h"

#include "platform/homescreen/HostPort.h"

namespace homescreen {

std::shared_ptr<const toolkit::Image> _UICreateScreenUIImage() {
    auto* port = HostPort::current();
    return port ? port->captureScreen() : nullptr;
}

} // namespace homescreen
