#include "platform/homescreen/HostPort.h"

namespace homescreen {

namespace {
HostPort* currentPort = nullptr;
}

HostPort* HostPort::current() {
    return currentPort;
}

void HostPort::setCurrent(HostPort* port) {
    currentPort = port;
}

} // namespace homescreen
