// The phone's music among that of the desktop it runs on: players of other applications come to the phone,
// and the phone's own player can be driven by others.
#pragma once

#include "hosts/media/mpris/MprisPlayers.h"
#include "hosts/media/mpris/MprisService.h"
#include "hosts/phone/music/PhoneMediaPort.h"

namespace phone {

class SessionMusic {
public:
    /// `music` outlives this. There must be a real main run loop; without a session bus nothing happens.
    explicit SessionMusic(PhoneMediaPort& music);

private:
    bus::Bus bus_{bus::Bus::Kind::Session};
    playback::MprisPlayers players_;
    playback::MprisService service_;
};

} // namespace phone
