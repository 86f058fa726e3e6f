// Plays a script without a display, on a virtual clock, as fast as the machine can.
#pragma once

#include "hosts/phone/program/Options.h"
#include "hosts/script/Script.h"

namespace phone {

/// There must be a device root. Throws device::ProgramError, or script::ScriptError when a command of the
/// script fails.
void runHeadless(const Options& options, const script::Script& script);

} // namespace phone
