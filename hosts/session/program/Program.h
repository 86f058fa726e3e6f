// The program from its command line to its exit code.
#pragma once

#include <string>
#include <vector>

namespace session {

/// Answers the exit code: 0, 2 when an option, the compositor, a file or a refused request is at fault, or 4
/// when the host has crashed too often. What went wrong has then been said on standard error.
int runProgram(const std::vector<std::string>& arguments);

} // namespace session
