// Whether the session is locked, as the login manager tells.
#pragma once

#include "hosts/session/bus/BusObject.h"

#include <optional>

namespace session {

class SessionLock {
public:
    /// `changed` is called after isLocked() has.
    SessionLock(Bus& system, std::function<void()> changed);

    bool isLocked() const { return locked_; }

private:
    void findSession();
    void watch(const std::string& path);
    void setLocked(bool locked);

    Bus& bus_;
    std::function<void()> changed_;
    bool locked_ = false;
    bool wasThere_ = false;
    std::string path_;
    std::optional<bool> hint_; // as last told
    std::unique_ptr<BusObject> session_;
    BusObject manager_;
};

} // namespace session
