#include "hosts/phone/program/SessionMusic.h"

namespace phone {

SessionMusic::SessionMusic(PhoneMediaPort& music)
    : players_(bus_, music.players()),
      service_(bus_, music.player(), {"vela", "Vela Phone", "vela-phone"},
               {[&music] { return music.volume(); }, [&music](double volume) { music.setVolume(volume); }}) {}

} // namespace phone
