#include "hosts/session/wayland/MissingProtocols.h"

#include "platform/foundation/Log.h"

namespace session {

void MissingProtocols::say(const std::string& line) {
    if (said_.insert(line).second)
        foundation::log("vela-session: " + line);
}

void MissingProtocols::report(const Globals& globals) {
    if (!globals.viewporter)
        say("no viewporter: colours and glass are drawn in full size, everything at whole scales");
    if (!globals.singlePixelBuffers)
        say("no single-pixel buffers: colours are kept in shared memory");
    if (!globals.screencopy)
        say("no screen copies: glass is plain, and its automatic style is light");
    if (!globals.offersToplevels())
        say("no foreign-toplevel management: no application is known to be in front");
    if (!globals.xdgOutputs)
        say("no xdg-output: an empty surface finds out how many points the screen has");
    if (!globals.outputPower)
        say("no output power management: the display is taken to be on unless the login manager calls the "
            "session idle");
}

} // namespace session
