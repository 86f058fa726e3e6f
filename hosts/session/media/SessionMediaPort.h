// The session's music, as the media classes ask for it: the songs on the disk, and the players that others
// run.
//
// The session has no player of its own: what is asked of the system's player the chosen one of the session's
// players gets. Makes itself the current port as long as it lives. Main thread, but for what MediaPort says.
#pragma once

#include "hosts/media/MusicLibrary.h"
#include "hosts/media/choice/NowPlayingChoice.h"
#include "hosts/media/mpris/MprisPlayer.h"
#include "platform/media/MediaPort.h"

#include <optional>

namespace session {

class SessionMediaPort final : public media::MediaPort {
public:
    /// Both outlive this. The choice holds players of the bus alone.
    SessionMediaPort(const playback::MusicLibrary& library, playback::NowPlayingChoice& players);
    ~SessionMediaPort() override;

    /// The name of an application that plays, and of the chosen one for the phone's own; nothing when there
    /// is none.
    std::optional<std::string> playerName(const std::string& bundleIdentifier) const;

    media::SharedMediaItems songs() const override { return library_.songs(); }
    std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const override;
    std::optional<std::string> lyrics(std::int64_t persistentID) const override;
    void setQueue(const media::MediaItems& items) override;
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) override;
    /// Null also for a song that is not of the library.
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const override;
    void prepareToPlay() override;
    /// Hands the player a song that was chosen since the last time; without one the player goes on.
    void play() override;
    void pause() override { perform(media::RemoteCommand::Pause); }
    void skipToNextItem() override { perform(media::RemoteCommand::NextTrack); }
    void skipToPreviousItem() override { perform(media::RemoteCommand::PreviousTrack); }
    void perform(media::RemoteCommand command) override;
    void seek(double seconds) override;
    /// The chosen player's, or that of the one before.
    double volume() const override { return volume_; }
    void setVolume(double volume) override;
    void launchApplication(const std::string& bundleIdentifier) override;

private:
    std::shared_ptr<playback::NowPlayingSource> sourceOf(const std::string& bundleIdentifier) const;
    std::shared_ptr<playback::MprisPlayer> player() const;
    void followVolume();
    void tellVolume(double volume);
    void hand(const media::MPMediaItem& song);
    void sayThatSongsAreRefused();

    const playback::MusicLibrary& library_;
    playback::NowPlayingChoice& players_;
    foundation::Handle playersObserver_;
    double volume_ = 1;
    media::MediaItems queue_;
    bool queueIsNew_ = false;
    std::shared_ptr<media::MPMediaItem> next_; // what play() begins with
    bool refusalIsSaid_ = false;
};

} // namespace session
