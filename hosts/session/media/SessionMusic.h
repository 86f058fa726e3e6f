// Music in the session: the players on its bus, the songs in the user's music directory, and lyrics.
//
// While nobody plays anything it rests: the library is read when the first track is heard of, and time is
// followed only while somebody looks. Main thread; there must be a main run loop and a device root.
#pragma once

#include "hosts/bus/Bus.h"
#include "hosts/device/LyricsGatewayProcess.h"
#include "hosts/media/library/IndexedMusicLibrary.h"
#include "hosts/media/mpris/MprisPlayers.h"
#include "hosts/session/media/SessionMediaPort.h"

#include <memory>

namespace session {

class SessionMusic {
public:
    /// The bus outlives this.
    explicit SessionMusic(bus::Bus& session);

    SessionMediaPort& port() { return port_; }
    /// Whether now-playing controls can be seen.
    void setWatched(bool watched) { choice_.setElapsedFollowed(watched); }

private:
    void findPlayers();
    void libraryChanged();
    std::int64_t lookUp(const playback::TrackMetadata& track);

    bus::Bus& bus_;
    playback::IndexedMusicLibrary library_;
    playback::NowPlayingChoice choice_;
    SessionMediaPort port_;
    std::unique_ptr<playback::MprisPlayers> players_; // null until lyrics can be asked for
    foundation::Handle libraryObserver_;
    device::LyricsGatewayProcess gateway_;
};

} // namespace session
