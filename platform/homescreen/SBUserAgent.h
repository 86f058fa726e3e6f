// Tells whether the device is locked.
#pragma once

#include "platform/runtime/Class.h"

namespace homescreen {

class SBUserAgent : public runtime::Object {
    RUNTIME_CLASS()
public:
    static SBUserAgent& sharedUserAgent();
    bool deviceIsLocked();

private:
    bool hostDeviceIsLocked();
};

} // namespace homescreen
