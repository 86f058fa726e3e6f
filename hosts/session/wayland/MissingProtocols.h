// Tells the log what the compositor lacks and what is done instead.
//
// Each line is said once in this object's life, however often the compositor is started again.
#pragma once

#include "hosts/session/wayland/Globals.h"

#include <set>
#include <string>

namespace session {

class MissingProtocols {
public:
    void report(const Globals& globals);

private:
    void say(const std::string& line);

    std::set<std::string> said_;
};

} // namespace session
