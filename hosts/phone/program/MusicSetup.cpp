#include "hosts/phone/program/MusicSetup.h"

#include "hosts/media/engine/GStreamerEngine.h"
#include "hosts/media/engine/StreamListEngine.h"
#include "hosts/media/library/IndexedMusicLibrary.h"
#include "hosts/media/library/UserMusicDirectory.h"

namespace phone {

std::optional<std::filesystem::path> musicDirectory(const Options& options) {
    if (options.musicDirectory || options.headless)
        return options.musicDirectory;
    return playback::userMusicDirectory();
}

void setUpMusic(const Options& options, PhoneConfiguration& configuration) {
    configuration.musicLibrary = std::make_shared<playback::IndexedMusicLibrary>();
    if (const auto directory = musicDirectory(options))
        configuration.musicLibrary->addDirectory(*directory);
    if (!options.headless)
        configuration.playbackEngine =
            std::make_shared<playback::StreamListEngine>(std::make_unique<playback::GStreamerEngine>());
}

} // namespace phone
