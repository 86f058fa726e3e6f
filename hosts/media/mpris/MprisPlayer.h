// A player of another application, as it tells of itself on the session bus.
//
// Its position is read once for every track; from there it advances with the player's rate, until the player
// tells of a leap.
#pragma once

#include "hosts/media/NowPlayingSource.h"
#include "hosts/media/mpris/TrackMetadata.h"
#include "platform/foundation/Observers.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace playback {

class MprisPlayer final : public NowPlayingSource {
public:
    /// Answers the persistent identifier of the library's song that a track is, 0 for none.
    using SongLookup = std::function<std::int64_t(const TrackMetadata&)>;

    /// `name` is the player's name on the bus, `owner` the connection that holds it. `lookUp` may be empty.
    MprisPlayer(GDBusConnection* connection, std::string name, const std::string& owner, SongLookup lookUp);
    ~MprisPlayer() override;

    const std::string& busName() const { return name_; }
    /// From 0 to 1; nothing for a player that has no volume of its own.
    std::optional<double> volume() const { return volume_; }
    /// Plays a local file ("file://…") in place of what it plays now, whichever addresses it says that it
    /// takes: some say less than they do. `refused` is called in a later turn when it cannot.
    void open(const std::string& address, std::function<void()> refused);
    /// The library has changed: the song is looked up again.
    void lookUpSongAgain();

    /// That of the player's desktop entry, or else its name on the bus.
    std::string bundleIdentifier() const override;
    std::string displayName() const override;
    bool isPlaying() const override { return status_ == Status::Playing; }
    bool isRadioStation() const override { return false; }
    foundation::PropertyList nowPlayingInfo() const override;
    double elapsed() const override;
    void perform(media::RemoteCommand command) override;
    void seek(double seconds) override;
    void setVolume(double volume) override;
    void launch() override;
    foundation::Handle addObserver(std::function<void(Change)> changed) override;

private:
    enum class Status { Stopped, Paused, Playing };

    void listen();
    void readProperties(const char* interface);
    void readPosition();
    void propertiesChanged(GVariant* arguments);
    void takeApplication(GVariant* properties);
    void takeAll(GVariant* properties);
    void takePlayer(GVariant* properties);
    void takeStatus(GVariant* status);
    void takeTrack(GVariant* metadata);
    void takeVolume(double volume);
    std::int64_t lookUpSong() const { return lookUp_ && track_.isTrack() ? lookUp_(track_) : 0; }
    void setPosition(double seconds);
    void call(const char* interface, const char* method, GVariant* arguments = nullptr);

    std::shared_ptr<GDBusConnection> connection_;
    std::shared_ptr<GCancellable> cancellable_;
    std::string name_;
    std::string owner_;
    SongLookup lookUp_;
    std::vector<foundation::Handle> signals_;
    foundation::Observers<Change> observers_;

    std::string identity_;
    std::string desktopEntry_;
    Status status_ = Status::Stopped;
    TrackMetadata track_;
    std::int64_t song_ = 0; // of the library
    std::optional<double> volume_;
    double rate_ = 1;
    double position_ = 0; // seconds, at `since_`
    double since_ = 0;    // run loop time
    bool isRead_ = false; // has once told all of itself
};

} // namespace playback
