// What a phone that is started from the command line plays its music with, and where it looks for it.
#pragma once

#include "hosts/phone/Phone.h"
#include "hosts/phone/program/Options.h"

#include <optional>

namespace phone {

/// Gives the phone a library and an engine: in the window one that sounds, headless one that is silent and
/// keeps to the virtual clock. There must be a main run loop and a device root.
void setUpMusic(const Options& options, PhoneConfiguration& configuration);

/// The directory that the command line names; without one the user's own, but none for a headless phone,
/// which is to be the same everywhere.
std::optional<std::filesystem::path> musicDirectory(const Options& options);

} // namespace phone
