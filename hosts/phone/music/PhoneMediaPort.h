// The phone's music: its library, its player, and the players of other applications, as the media classes ask
// for them.
//
// Main thread, but for what MediaPort says. Makes itself the current port as long as it lives.
#pragma once

#include "hosts/media/MusicLibrary.h"
#include "hosts/media/choice/NowPlayingChoice.h"
#include "hosts/phone/music/MusicPlayer.h"
#include "platform/media/MediaPort.h"

namespace phone {

class PhoneMediaPort final : public media::MediaPort {
public:
    /// What the phone does for its music.
    struct Actions {
        /// Changes the phone's volume, as a hand on a slider does.
        std::function<void(double volume)> setVolume;
        /// Brings the application that belongs to what the phone's player plays to the front.
        std::function<void()> openPlayer;
    };

    /// Without a library there are no songs. `volume` is the phone's, from 0 to 1.
    PhoneMediaPort(std::shared_ptr<playback::PlaybackEngine> engine,
                   std::shared_ptr<playback::MusicLibrary> library, double volume, Actions actions);
    ~PhoneMediaPort() override;

    MusicPlayer& player() { return *player_; }
    /// Null when the phone has no library.
    const std::shared_ptr<playback::MusicLibrary>& library() const { return library_; }
    /// The phone's player and those of other applications.
    playback::NowPlayingChoice& players() { return players_; }
    /// The phone's volume has changed.
    void volumeChanged(double volume);
    /// Plays a song of the library, and what follows it there.
    void playFromLibrary(const std::shared_ptr<media::MPMediaItem>& item);

    media::SharedMediaItems songs() const override;
    std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const override;
    std::optional<std::string> lyrics(std::int64_t persistentID) const override;
    void setQueue(const media::MediaItems& items) override;
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) override;
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const override;
    void prepareToPlay() override;
    void play() override;
    void pause() override;
    void skipToNextItem() override;
    void skipToPreviousItem() override;
    /// To the player that is shown; with none, playing begins with the library's first song.
    void perform(media::RemoteCommand command) override;
    void seek(double seconds) override;
    double volume() const override { return volume_; }
    void setVolume(double volume) override;
    void launchApplication(const std::string& bundleIdentifier) override;

private:
    std::shared_ptr<MusicPlayer> player_;
    std::shared_ptr<playback::MusicLibrary> library_;
    media::SharedMediaItems noSongs_ = std::make_shared<const media::MediaItems>();
    playback::NowPlayingChoice players_;
    foundation::Handle libraryObserver_;
    double volume_;
    Actions actions_;
};

} // namespace phone
