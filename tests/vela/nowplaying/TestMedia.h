// A library and a player whose every answer a test can set, and which writes down what they are asked to do.
#pragma once

#include "platform/media/MediaPort.h"
#include "tests/support/Transcript.h"

#include <map>
#include <memory>

namespace tests {

class TestMedia final : public media::MediaPort {
public:
    explicit TestMedia(support::Transcript& transcript) : transcript_(transcript) { setCurrent(this); }
    ~TestMedia() override { setCurrent(nullptr); }

    /// Adds a song whose identifier is its number, from 1; an absent artist or album is left out.
    std::shared_ptr<media::MPMediaItem>
    add(const std::string& title, std::optional<std::string> artist, std::optional<std::string> album,
        media::MPMediaItem::Cover cover = media::MPMediaItem::Cover::None) {
        auto songs = std::make_shared<media::MediaItems>(*songs_);
        std::map<std::string, foundation::PropertyList> properties{
            {media::MPMediaItemPropertyPersistentID, static_cast<std::int64_t>(songs->size() + 1)},
            {media::MPMediaItemPropertyTitle, title}};
        if (artist)
            properties[media::MPMediaItemPropertyArtist] = *artist;
        if (album)
            properties[media::MPMediaItemPropertyAlbumTitle] = *album;
        songs->push_back(std::make_shared<media::MPMediaItem>(properties, cover));
        songs_ = songs;
        return songs->back();
    }
    /// The bytes of every cover.
    std::vector<std::uint8_t> cover;

    media::SharedMediaItems songs() const override { return songs_; }
    std::vector<std::uint8_t> artworkData(std::int64_t) const override { return cover; }
    std::optional<std::string> lyrics(std::int64_t) const override { return std::nullopt; }
    void setQueue(const media::MediaItems& items) override { transcript_.add("queue of ", items.size()); }
    void setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) override {
        transcript_.add("now playing ", item->persistentID());
    }
    std::shared_ptr<media::MPMediaItem> nowPlayingItem() const override { return nullptr; }
    void prepareToPlay() override { transcript_.add("prepare"); }
    void play() override { transcript_.add("play"); }
    void pause() override { transcript_.add("pause"); }
    void skipToNextItem() override {}
    void skipToPreviousItem() override {}
    void perform(media::RemoteCommand) override {}
    void seek(double) override {}
    double volume() const override { return 0.5; }
    void setVolume(double) override {}
    void launchApplication(const std::string& bundleIdentifier) override {
        transcript_.add("launch ", bundleIdentifier);
    }

private:
    support::Transcript& transcript_;
    media::SharedMediaItems songs_ = std::make_shared<const media::MediaItems>();
};

} // namespace tests
