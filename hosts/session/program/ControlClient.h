// Asks something of the session host that is running, over the session bus.
#pragma once

#include "hosts/session/program/Options.h"

namespace session {

/// Prints the answer, if there is one. Throws device::ProgramError when there is no host, or it refuses.
void sendRequest(const Options& options);

} // namespace session
