// Which plug-ins are left out because they took the phone down, and the note by which a phone that starts
// again learns of it.
//
// Both are files of the device, read afresh on every call. Main thread only.
#pragma once

#include <optional>
#include <string>

namespace plugins {

inline constexpr const char* stateDirectory = "/var/mobile/Library/Vela";
inline constexpr const char* crashNotePath = "/var/mobile/Library/Vela/crashed-plugin";
inline constexpr const char* disabledListPath = "/var/mobile/Library/Vela/disabled-plugins.plist";

/// Whether the plug-in is left out: its bundle does not open.
bool isDisabled(const std::string& identifier);
/// Lets the plug-in take part again. True when it is enabled afterwards.
bool enable(const std::string& identifier);

/// For a host as it starts: when a plug-in's crash ended the phone before, disables it, removes the note and
/// answers the plug-in's identifier.
std::optional<std::string> takeNoteOfCrash();

} // namespace plugins
