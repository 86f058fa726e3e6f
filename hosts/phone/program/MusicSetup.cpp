#include "hosts/phone/program/MusicSetup.h"

#include "hosts/media/engine/GStreamerEngine.h"
#include "hosts/media/library/IndexedMusicLibrary.h"

#include <glib.h>

namespace phone {

std::optional<std::filesystem::path> musicDirectory(const Options& options) {
    if (options.musicDirectory || options.headless)
        return options.musicDirectory;
    if (const char* directory = g_get_user_special_dir(G_USER_DIRECTORY_MUSIC))
        return directory;
    return std::filesystem::path(g_get_home_dir()) / "Music";
}

void setUpMusic(const Options& options, PhoneConfiguration& configuration) {
    configuration.musicLibrary = std::make_shared<playback::IndexedMusicLibrary>();
    if (const auto directory = musicDirectory(options))
        configuration.musicLibrary->addDirectory(*directory);
    if (!options.headless)
        configuration.playbackEngine = std::make_shared<playback::GStreamerEngine>();
}

} // namespace phone
