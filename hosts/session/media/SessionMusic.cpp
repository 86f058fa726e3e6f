#include "hosts/session/media/SessionMusic.h"

#include "hosts/media/library/UserMusicDirectory.h"
#include "hosts/media/mpris/SongOfTrack.h"
#include "platform/media/CoverStore.h"

namespace session {

// A lyric that is asked for before the gateway stands would be remembered as one that there is not, so the
// players come after it.
SessionMusic::SessionMusic(bus::Bus& session)
    : bus_(session),
      port_(library_, choice_),
      libraryObserver_(library_.addObserver([this] { libraryChanged(); })),
      gateway_({device::LyricsGatewayProcess::userDirectory(), playback::userMusicDirectory()},
               [this] { findPlayers(); }) {
    choice_.setElapsedFollowed(false);
}

void SessionMusic::findPlayers() {
    players_ = std::make_unique<playback::MprisPlayers>(
        bus_, choice_, [this](const playback::TrackMetadata& track) { return lookUp(track); });
}

void SessionMusic::libraryChanged() {
    if (!library_.isScanning())
        media::CoverStore::shared().clear();
    players_->lookUpSongsAgain();
}

std::int64_t SessionMusic::lookUp(const playback::TrackMetadata& track) {
    if (library_.directories().empty())
        library_.addDirectory(playback::userMusicDirectory());
    const auto song = playback::songOfTrack(*library_.songs(), track);
    return song ? song->persistentID() : 0;
}

} // namespace session
