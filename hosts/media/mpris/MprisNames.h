// The names by which players know each other on the session bus.
#pragma once

#include <string_view>

namespace playback::mpris {

/// Every player's bus name begins with it, and goes on with a point and a name of its own.
inline constexpr const char* namePrefix = "org.mpris.MediaPlayer2";
inline constexpr const char* path = "/org/mpris/MediaPlayer2";
/// The two interfaces: of the application, and of what it plays.
inline constexpr const char* applicationInterface = "org.mpris.MediaPlayer2";
inline constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
inline constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

} // namespace playback::mpris
