// The session as the login manager knows it: whether it is locked, and whether nobody does anything in it.
#pragma once

#include "hosts/session/bus/BusObject.h"

#include <optional>

namespace session {

class LoginSession {
public:
    /// `changed` is called after isLocked() or isIdle() has.
    LoginSession(bus::Bus& system, std::function<void()> changed);

    bool isLocked() const { return locked_; }
    /// False as well while the login manager does not tell.
    bool isIdle() const { return idle_; }

private:
    void findSession();
    void watch(const std::string& path);
    void readHints();
    void take(bool locked, bool idle);

    bus::Bus& bus_;
    std::function<void()> changed_;
    bool locked_ = false;
    bool idle_ = false;
    bool wasThere_ = false;
    std::string path_;
    std::optional<bool> lockedHint_; // as last told
    std::unique_ptr<BusObject> session_;
    BusObject manager_;
};

} // namespace session
