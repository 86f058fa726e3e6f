// Runs the phone in a window, in real time.
#pragma once

#include "hosts/phone/program/Options.h"
#include "hosts/script/Script.h"

#include <optional>

namespace phone {

/// Returns when the window has been closed or, unless it is to stay open, when the script has been played.
/// There must be a device root. Throws device::ProgramError when there is no display, and
/// script::ScriptError.
void runInWindow(const Options& options, const std::optional<script::Script>& script);

} // namespace phone
