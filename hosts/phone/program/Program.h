// The program from its command line to its exit code.
#pragma once

#include "hosts/phone/program/Options.h"
#include "hosts/script/Script.h"

#include <optional>
#include <string>
#include <vector>

namespace phone {

/// Runs the phone in a window until it is closed or, with a script, until that has been played. The device
/// root stands. Throws device::ProgramError or script::ScriptError.
using WindowFunction = void (*)(const Options& options, const std::optional<script::Script>& script);

/// Answers the exit code: 0, 2 when an option, a script or a file is at fault, or 3 when a plug-in has
/// crashed while a script was played. What went wrong has then been said on standard error.
int runProgram(const std::vector<std::string>& arguments, WindowFunction runWindow);

} // namespace phone
