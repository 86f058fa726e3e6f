// The program from its command line to its exit code.
#pragma once

#include "hosts/settings/program/Options.h"

namespace settings {

/// Shows the settings in a window until it is closed. The device root stands. Throws device::ProgramError.
using WindowFunction = void (*)(const Options& options);

/// Answers the exit code. What went wrong has then been said on standard error.
int runProgram(const std::vector<std::string>& arguments, WindowFunction runWindow);

} // namespace settings
