// The host's own player as others see it on the session bus: an MPRIS2 player that media keys, panels and
// command lines can drive.
//
// Main thread only.
#pragma once

#include "hosts/bus/Bus.h"
#include "hosts/media/NowPlayingSource.h"
#include "hosts/media/mpris/Variant.h"

#include <map>
#include <string>

namespace playback {

class MprisService {
public:
    struct Description {
        /// The last part of the player's name on the bus: "org.mpris.MediaPlayer2.NAME". When that is taken,
        /// ".instance" and the process's number are added.
        std::string name;
        std::string identity;     // for people
        std::string desktopEntry; // without ".desktop"; may be empty
    };
    struct Volume {
        std::function<double()> get;
        std::function<void(double)> set;
    };

    /// `bus` and `player` must outlive the service.
    MprisService(bus::Bus& bus, NowPlayingSource& player, Description description, Volume volume);
    MprisService(const MprisService&) = delete;
    MprisService& operator=(const MprisService&) = delete;
    ~MprisService();

private:
    struct Methods;
    using Properties = std::map<std::string, Variant>;

    void busChanged();
    void registerObjects();
    void requestName(const std::string& name);
    void leaveBus();
    void playerChanged(NowPlayingSource::Change change);
    void tellChanges();

    Properties applicationProperties() const;
    Properties playerProperties() const;
    Variant metadata() const;
    void call(const std::string& method, GVariant* arguments);
    void seekBy(double seconds);
    void setPosition(const std::string& track, double seconds);

    bus::Bus& bus_;
    NowPlayingSource& player_;
    Description description_;
    Volume volume_;
    std::shared_ptr<GDBusConnection> connection_; // that the objects stand on
    std::shared_ptr<GCancellable> cancellable_;
    std::vector<unsigned> objects_;
    Properties told_;
    foundation::Handle busObserver_;
    foundation::Handle playerObserver_;
};

} // namespace playback
