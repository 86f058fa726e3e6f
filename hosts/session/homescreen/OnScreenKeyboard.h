// Whether the on-screen keyboard shows, as its service tells.
#pragma once

#include "hosts/session/bus/BusObject.h"

namespace session {

class OnScreenKeyboard {
public:
    OnScreenKeyboard(bus::Bus& session, std::function<void()> changed)
        : keyboard_(session, {"sm.puri.OSK0", "/sm/puri/OSK0", "sm.puri.OSK0"}, {std::move(changed)}) {}

    bool isVisible() const { return keyboard_.booleanProperty("Visible", false); }

private:
    BusObject keyboard_;
};

} // namespace session
