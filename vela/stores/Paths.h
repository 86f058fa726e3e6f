// Where the product's files lie on the device.
#pragma once

namespace vela::paths {

inline constexpr const char* preferences = "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist";
inline constexpr const char* defaults = "/Library/Application Support/Vela/default.plist";
inline constexpr const char* data = "/var/mobile/Documents/Vela";
inline constexpr const char* lyrics = "/var/mobile/Documents/Vela/fetchedLyrics.plist";
inline constexpr const char* artworks = "/var/mobile/Documents/Vela/Artworks";
inline constexpr const char* defaultArtwork = "/Library/Application Support/Vela/default_artwork.png";
inline constexpr const char* configuration = "/Library/Application Support/Vela/configuration.plist";
inline constexpr const char* plugIns = "/Library/Application Support/Vela/Plugins";

} // namespace vela::paths
