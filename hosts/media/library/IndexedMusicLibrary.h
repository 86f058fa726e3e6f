// The music library of a device: its directories are read in the background, and what was read is remembered
// from start to start in an index file.
#pragma once

#include "hosts/media/MusicLibrary.h"
#include "hosts/media/library/SongList.h"
#include "platform/foundation/Observers.h"

#include <memory>
#include <mutex>

namespace playback {

class IndexedMusicLibrary final : public MusicLibrary {
public:
    IndexedMusicLibrary();
    IndexedMusicLibrary(const IndexedMusicLibrary&) = delete;
    IndexedMusicLibrary& operator=(const IndexedMusicLibrary&) = delete;
    /// Ends a scan at its next file.
    ~IndexedMusicLibrary() override;

    void addDirectory(const std::filesystem::path& directory) override;
    const std::vector<std::filesystem::path>& directories() const override { return directories_; }
    bool isScanning() const override { return scan_ != Scan::None; }
    media::SharedMediaItems songs() const override { return list()->items(); }
    std::shared_ptr<media::MPMediaItem> song(std::int64_t persistentID) const override;
    foundation::Handle addObserver(std::function<void()> changed) override;
    std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const override;
    std::optional<std::string> lyrics(std::int64_t persistentID) const override;

private:
    /// Due: begins in the next turn. Outdated: runs, but directories were added since it began.
    enum class Scan { None, Due, Running, Outdated };
    struct Life;

    void startScan();
    void take(std::shared_ptr<const SongList> list);
    void retire(std::shared_ptr<const SongList> list);
    void scanEnded();
    std::shared_ptr<const SongList> list() const;

    std::vector<std::filesystem::path> directories_;
    Scan scan_ = Scan::None;
    foundation::Observers<> observers_;
    /// What the background knows of the library: whether it still stands.
    std::shared_ptr<Life> life_;
    mutable std::mutex listMutex_; // covers and words are asked for on any thread
    std::shared_ptr<const SongList> list_ = std::make_shared<const SongList>();
    std::vector<std::shared_ptr<const SongList>> retired_;
    foundation::Handle retirement_;
};

} // namespace playback
