// A media library of any size for benchmarks, whose songs are of a hundred artists and have no covers. There
// is no player behind it.
#pragma once

#include "platform/media/MediaPort.h"

namespace bench {

class LibraryPort final : public media::MediaPort {
public:
    explicit LibraryPort(int size) {
        auto songs = std::make_shared<media::MediaItems>();
        for (int song = 1; song <= size; ++song)
            songs->push_back(std::make_shared<media::MPMediaItem>(propertiesOf(song)));
        songs_ = songs;
        setCurrent(this);
    }
    ~LibraryPort() override { setCurrent(nullptr); }

    static std::string titleOf(int song) { return "Song " + std::to_string(song); }
    static std::string artistOf(int song) { return "Artist " + std::to_string(song % 100); }
    static std::string albumOf(int song) { return "Album " + std::to_string(song / 12); }

    media::SharedMediaItems songs() const override { return songs_; }
    std::vector<std::uint8_t> artworkData(std::int64_t) const override { return {}; }
    std::optional<std::string> lyrics(std::int64_t) const override { return std::nullopt; }
    void setQueue(const media::MediaItems&) override {}
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>&) override {}
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const override { return nullptr; }
    void prepareToPlay() override {}
    void play() override {}
    void pause() override {}
    void skipToNextItem() override {}
    void skipToPreviousItem() override {}
    void perform(media::RemoteCommand) override {}
    void seek(double) override {}
    double volume() const override { return 0.5; }
    void setVolume(double) override {}
    void launchApplication(const std::string&) override {}

private:
    static std::map<std::string, foundation::PropertyList> propertiesOf(int song) {
        return {{media::MPMediaItemPropertyPersistentID, std::int64_t{song}},
                {media::MPMediaItemPropertyTitle, titleOf(song)},
                {media::MPMediaItemPropertyArtist, artistOf(song)},
                {media::MPMediaItemPropertyAlbumTitle, albumOf(song)},
                {media::MPMediaItemPropertyPlaybackDuration, 200.0},
                {media::MPMediaItemPropertyAssetURL, "file:///music/" + std::to_string(song) + ".flac"}};
    }
    media::SharedMediaItems songs_;
};

} // namespace bench
