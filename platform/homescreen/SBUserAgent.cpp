#include "platform/homescreen/SBUserAgent.h"

#include "platform/homescreen/HostPort.h"
#include "platform/runtime/Message.h"

namespace homescreen {

runtime::Class& SBUserAgent::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<SBUserAgent>("SBUserAgent", &Object::staticClass())
                                     .method("deviceIsLocked", &SBUserAgent::hostDeviceIsLocked)
                                     .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBUserAgent)

SBUserAgent& SBUserAgent::sharedUserAgent() {
    static auto& agent = *new SBUserAgent; // never torn down
    return agent;
}

bool SBUserAgent::deviceIsLocked() {
    static const runtime::Message<bool()> message{"deviceIsLocked"};
    return message(*this);
}

bool SBUserAgent::hostDeviceIsLocked() {
    auto* port = HostPort::current();
    return port && port->isDeviceLocked();
}

} // namespace homescreen
