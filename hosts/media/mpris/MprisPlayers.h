// The players of other applications on the session bus: they come to the choice of what plays now, and go.
//
// Proxies, which only repeat what another player says, are left out, and so are the players of this very
// process. Main thread only.
#pragma once

#include "hosts/bus/Bus.h"
#include "hosts/media/choice/NowPlayingChoice.h"
#include "hosts/media/mpris/MprisPlayer.h"

#include <map>

namespace playback {

class MprisPlayers {
public:
    /// Both must outlive this. Without a `lookUp` no track is known as a song of the library.
    MprisPlayers(bus::Bus& bus, NowPlayingChoice& choice, MprisPlayer::SongLookup lookUp = {});
    MprisPlayers(const MprisPlayers&) = delete;
    MprisPlayers& operator=(const MprisPlayers&) = delete;
    ~MprisPlayers();

    /// The library has changed.
    void lookUpSongsAgain();

private:
    void busChanged();
    void listNames();
    void takeNames(GVariant* answer);
    void askForOwner(const std::string& name);
    void ownerChanged(GVariant* arguments);
    void setOwner(const std::string& name, const std::string& owner);
    void removeAll();

    bus::Bus& bus_;
    NowPlayingChoice& choice_;
    MprisPlayer::SongLookup lookUp_;
    foundation::Handle busObserver_;
    foundation::Handle owners_;
    std::shared_ptr<GCancellable> cancellable_;
    std::map<std::string, std::shared_ptr<MprisPlayer>> players_; // by name
};

} // namespace playback
