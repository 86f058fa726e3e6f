// The phone's own player: a queue of songs, or a radio station, played by an engine.
//
// A queue of its own keeps the song that plays until another one is chosen. At the queue's end the player
// stands paused at its first song. Main thread only.
#pragma once

#include "hosts/applications/ApplicationCatalogue.h"
#include "hosts/media/NowPlayingSource.h"
#include "hosts/media/PlaybackEngine.h"
#include "hosts/phone/music/RadioStation.h"
#include "hosts/phone/music/StreamTitle.h"
#include "platform/foundation/Observers.h"

#include <memory>
#include <optional>

namespace phone {

class MusicPlayer final : public playback::NowPlayingSource {
public:
    static constexpr const char* applicationIdentifier = applications::music.bundleIdentifier;

    explicit MusicPlayer(std::shared_ptr<playback::PlaybackEngine> engine);
    ~MusicPlayer() override;

    // Songs.
    /// What comes after the song that plays; nothing of it is chosen yet. Not null.
    void setQueue(media::SharedMediaItems items);
    /// Chooses a song of the queue, and plays it if something plays. Any other song is ignored.
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item);
    /// Null while a station plays, too.
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const { return stream_ ? nullptr : item_; }
    void prepareToPlay();
    void play();
    void pause();
    void skipToNextItem();
    /// To the song's beginning when more than three seconds of it have been played, else to the one before.
    void skipToPreviousItem();

    // Radio.
    void playStation(const RadioStation& station);
    /// Becomes a stream without a sound that says it plays this: what a demonstration needs.
    void playSilentStream(const StreamTitle& title);
    /// The station that is tuned in, or nothing.
    std::optional<RadioStation> station() const;

    /// Whether what was to sound last could not.
    bool hasFailed() const { return failed_; }

    double volume() const { return engine_->volume(); }
    /// Called by launch().
    void setLaunchHandler(std::function<void()> launch) { launch_ = std::move(launch); }

    // NowPlayingSource.
    std::string bundleIdentifier() const override { return applicationIdentifier; }
    std::string displayName() const override { return "Music"; }
    bool isPlaying() const override;
    bool isRadioStation() const override { return stream_.has_value(); }
    foundation::PropertyList nowPlayingInfo() const override;
    double elapsed() const override;
    void perform(media::RemoteCommand command) override;
    void seek(double seconds) override;
    void setVolume(double volume) override { engine_->setVolume(volume); }
    void launch() override;
    foundation::Handle addObserver(std::function<void(Change)> changed) override;

private:
    struct Stream {
        RadioStation station;
        StreamTitle title;
        bool silent = false;
    };
    void choose(std::size_t index);
    void stopAtFirst();
    void tuneIn(Stream stream);
    /// Gives the engine what is to be played.
    void load();
    void ended();
    void failed(const std::string& reason);
    void streamTitleChanged(const std::string& title);
    void durationChanged();
    void notify(std::initializer_list<Change> changes);
    foundation::PropertyList::Dictionary songInfo() const;
    foundation::PropertyList::Dictionary streamInfo() const;
    std::string uri() const;
    /// Of the song, as its tags say; 0 when they do not.
    double taggedDuration() const;

    std::shared_ptr<playback::PlaybackEngine> engine_;
    media::SharedMediaItems queue_;
    std::optional<std::size_t> index_; // of item_ in queue_, once one of it was chosen
    std::shared_ptr<media::MPMediaItem> item_;
    std::optional<Stream> stream_;
    bool loaded_ = false; // whether the engine holds item_ or the stream
    bool wanted_ = false; // whether it is to sound, as soon as it can
    bool failed_ = false;
    int failures_ = 0; // songs in a row that could not be played
    std::function<void()> launch_;
    foundation::Observers<Change> observers_;
};

} // namespace phone
