#include "platform/preferences/PreferencesPort.h"

namespace preferences {

namespace {
PreferencesPort* currentPort = nullptr;
}

PreferencesPort* PreferencesPort::current() {
    return currentPort;
}

void PreferencesPort::setCurrent(PreferencesPort* port) {
    currentPort = port;
}

} // namespace preferences
