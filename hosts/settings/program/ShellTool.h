// The settings for people who prefer the shell: lists, reads and writes them without a window.
#pragma once

#include "hosts/settings/program/Options.h"

namespace settings {

/// Does what the options ask for (List, Get or Set) and answers the exit code. There must be a device root,
/// and no main run loop yet. Throws ProgramError for a key that no page edits and a value that is none of
/// its.
int runShellTool(const Options& options);

} // namespace settings
