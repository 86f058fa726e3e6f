// Where the user of this machine keeps music.
#pragma once

#include <filesystem>

namespace playback {

/// The desktop's directory for music, whether it is there or not.
std::filesystem::path userMusicDirectory();

} // namespace playback
