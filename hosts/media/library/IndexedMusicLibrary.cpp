#include "hosts/media/library/IndexedMusicLibrary.h"

#include "hosts/media/library/LibraryScan.h"
#include "hosts/media/library/TagReader.h"
#include "platform/foundation/RunLoop.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace playback {

namespace {

constexpr const char* indexPath = "/var/mobile/Library/Caches/MusicLibrary/songs.index";
constexpr double timeToLetGo = 5; // seconds

} // namespace

/// Outlives the library for as long as a scan runs.
struct IndexedMusicLibrary::Life {
    std::atomic<bool> ended = false; // written on the main thread
};

IndexedMusicLibrary::IndexedMusicLibrary() : life_(std::make_shared<Life>()) {}

IndexedMusicLibrary::~IndexedMusicLibrary() {
    life_->ended = true;
}

void IndexedMusicLibrary::addDirectory(const std::filesystem::path& directory) {
    if (std::find(directories_.begin(), directories_.end(), directory) == directories_.end())
        directories_.push_back(directory);
    if (scan_ == Scan::Running)
        scan_ = Scan::Outdated;
    if (scan_ != Scan::None)
        return;
    scan_ = Scan::Due;
    // Directories that are added one after the other are read together: the index holds what one scan found.
    foundation::RunLoop::main().performOnMain([this, life = life_] {
        if (!life->ended)
            startScan();
    });
}

void IndexedMusicLibrary::startScan() {
    scan_ = Scan::Running;
    observers_.notify();
    auto& loop = foundation::RunLoop::main(); // waits for its background before it goes
    const auto onMain = [&loop, life = life_](std::function<void()> block) {
        loop.performOnMain([life, block = std::move(block)] {
            if (!life->ended)
                block();
        });
    };
    const auto publish = [this, onMain](std::shared_ptr<const SongList> list) {
        onMain([this, list = std::move(list)] { take(list); });
    };
    loop.performInBackground(
        [this, life = life_, onMain, publish, directories = directories_, latest = list()] {
            LibraryScan(directories, LibraryIndex(indexPath), latest, life->ended, publish).run();
            onMain([this] { scanEnded(); });
        });
}

void IndexedMusicLibrary::take(std::shared_ptr<const SongList> list) {
    {
        std::lock_guard lock(listMutex_);
        std::swap(list_, list);
    }
    retire(std::move(list));
    observers_.notify();
}

// The end of a large list takes longer than a frame, so it comes away from the main thread, and only when
// whoever showed the list has let go of it.
void IndexedMusicLibrary::retire(std::shared_ptr<const SongList> list) {
    retired_.push_back(std::move(list));
    if (retired_.size() > 1)
        return;
    retirement_ = foundation::RunLoop::main().scheduleTimer(timeToLetGo, false, [this] {
        foundation::RunLoop::main().performInBackground(
            [lists = std::exchange(retired_, {})]() mutable { lists.clear(); });
    });
}

void IndexedMusicLibrary::scanEnded() {
    const bool outdated = scan_ == Scan::Outdated;
    scan_ = Scan::None;
    if (outdated)
        startScan();
    else
        observers_.notify();
}

std::shared_ptr<const SongList> IndexedMusicLibrary::list() const {
    std::lock_guard lock(listMutex_);
    return list_;
}

std::shared_ptr<media::MPMediaItem> IndexedMusicLibrary::song(std::int64_t persistentID) const {
    return list()->item(persistentID);
}

foundation::Handle IndexedMusicLibrary::addObserver(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

std::vector<std::uint8_t> IndexedMusicLibrary::artworkData(std::int64_t persistentID) const {
    const std::string path = list()->path(persistentID);
    return path.empty() ? std::vector<std::uint8_t>() : readCover(path);
}

std::optional<std::string> IndexedMusicLibrary::lyrics(std::int64_t persistentID) const {
    const std::string path = list()->path(persistentID);
    return path.empty() ? std::nullopt : readLyrics(path);
}

} // namespace playback
