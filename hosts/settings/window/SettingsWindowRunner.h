// Runs the settings in a window, in real time.
#pragma once

#include "hosts/settings/program/Options.h"

namespace settings {

/// Until the window is closed. Throws device::ProgramError.
void runInWindow(const Options& options);

} // namespace settings
