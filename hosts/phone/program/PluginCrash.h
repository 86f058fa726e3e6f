// What the phone does about a plug-in that crashes it: it starts again by itself, without that plug-in.
//
// The crashed process is replaced by a new one with the same command line and "--after-crash ROOT" behind it,
// which finds the note of the crash on the device's disk. A script that was being played has come to nothing:
// then the new process only says so, and the exit code is 3.
#pragma once

#include "hosts/phone/program/Options.h"

#include <stdexcept>

namespace phone {

class PluginCrash : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// From now on a plug-in's crash replaces this process. `root` is the device root.
void startAgainAfterPluginCrash(const Options& options, const std::filesystem::path& root);

/// Disables the plug-in whose crash ended the phone before, if one did. Throws PluginCrash when what that
/// phone was asked for cannot be gone on with.
void takeNoteOfPluginCrash(const Options& options);

} // namespace phone
