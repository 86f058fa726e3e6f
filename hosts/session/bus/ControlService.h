// The panels on the session bus, under the name org.lanternhub.vela3.
//
// The name is taken whenever the bus is there. Main thread only.
#pragma once

#include "hosts/bus/Bus.h"
#include "hosts/session/homescreen/Panels.h"

namespace session {

class ControlService {
public:
    static constexpr const char* name = "org.lanternhub.vela3";
    static constexpr const char* path = "/org/lanternhub/vela3";

    /// Everything outlives this object. `describeState` answers the state as JSON.
    ControlService(bus::Bus& bus, Panels& panels, std::function<std::string()> describeState);
    ~ControlService();
    ControlService(const ControlService&) = delete;
    ControlService& operator=(const ControlService&) = delete;

    /// Tells the bus that what is shown has changed.
    void announce();

private:
    struct Interface;
    friend struct Interface;
    void open();
    void close();

    bus::Bus& bus_;
    Panels& panels_;
    std::function<std::string()> describeState_;
    unsigned object_ = 0;
    unsigned owner_ = 0;
    foundation::Handle busObserver_;
};

} // namespace session
