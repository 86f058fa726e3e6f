// A music library whose songs a test names.
#pragma once

#include "hosts/media/MusicLibrary.h"
#include "platform/foundation/Observers.h"

#include <map>

namespace support {

class TestMusicLibrary final : public playback::MusicLibrary {
public:
    /// Identifiers are counted from 1.
    void add(const std::string& title, const std::string& artist, const std::string& album,
             double seconds = 180) {
        auto items = *songs_;
        items.push_back(std::make_shared<media::MPMediaItem>(
            std::map<std::string, foundation::PropertyList>{
                {media::MPMediaItemPropertyPersistentID, static_cast<std::int64_t>(items.size() + 1)},
                {media::MPMediaItemPropertyTitle, title},
                {media::MPMediaItemPropertyArtist, artist},
                {media::MPMediaItemPropertyAlbumTitle, album},
                {media::MPMediaItemPropertyPlaybackDuration, seconds},
                {media::MPMediaItemPropertyAssetURL, "http://songs.example/" + title}},
            media::MPMediaItem::Cover::InLibrary));
        setSongs(std::move(items));
    }
    void setSongs(media::MediaItems items) {
        songs_ = std::make_shared<const media::MediaItems>(std::move(items));
        observers_.notify();
    }
    void setScanning(bool scanning) {
        scanning_ = scanning;
        observers_.notify();
    }
    std::map<std::int64_t, std::vector<std::uint8_t>> covers;

    void addDirectory(const std::filesystem::path& directory) override {
        directories_.push_back(directory);
        observers_.notify();
    }
    const std::vector<std::filesystem::path>& directories() const override { return directories_; }
    bool isScanning() const override { return scanning_; }
    media::SharedMediaItems songs() const override { return songs_; }
    std::shared_ptr<media::MPMediaItem> song(std::int64_t persistentID) const override {
        for (const auto& item : *songs_)
            if (item->persistentID() == persistentID)
                return item;
        return nullptr;
    }
    foundation::Handle addObserver(std::function<void()> changed) override {
        return observers_.add(std::move(changed));
    }
    std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const override {
        const auto found = covers.find(persistentID);
        return found == covers.end() ? std::vector<std::uint8_t>() : found->second;
    }
    std::optional<std::string> lyrics(std::int64_t) const override { return std::nullopt; }

private:
    std::vector<std::filesystem::path> directories_;
    media::SharedMediaItems songs_ = std::make_shared<const media::MediaItems>();
    bool scanning_ = false;
    foundation::Observers<> observers_;
};

} // namespace support
