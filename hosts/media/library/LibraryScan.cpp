#include "hosts/media/library/LibraryScan.h"

#include "hosts/media/library/DirectoryWalk.h"
#include "hosts/media/library/TagProcess.h"
#include "platform/foundation/Log.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace playback {

namespace {

/// Songs are shown when so many more have been read, and then each time that there are half as many again:
/// making a list takes as long as the list is.
constexpr std::size_t firstSongs = 200;

} // namespace

LibraryScan::LibraryScan(std::vector<std::filesystem::path> directories, LibraryIndex index,
                         std::shared_ptr<const SongList> latest, const std::atomic<bool>& cancelled,
                         Publish publish)
    : directories_(std::move(directories)),
      index_(std::move(index)),
      latest_(std::move(latest)),
      cancelled_(cancelled),
      publish_(std::move(publish)) {}

void LibraryScan::run() {
    indexed_ = index_.read();
    publishIndex();
    const std::size_t indexedCount = indexed_.size();
    const std::vector<MusicFile> unread = takeKnown(findFiles());
    const bool changed = !unread.empty() || entries_.size() != indexedCount;
    indexed_ = {};
    readFiles(unread);
    if (cancelled_)
        return;
    publishEntries();
    if (changed && !index_.write(entries_))
        foundation::log("The index of the music library cannot be written.");
}

void LibraryScan::publishIndex() {
    // Later on what is known is shown already.
    if (indexed_.empty() || !latest_->items()->empty())
        return;
    latest_ = std::make_shared<const SongList>(indexed_, *latest_);
    publish_(latest_);
}

std::vector<MusicFile> LibraryScan::findFiles() const {
    DirectoryWalk walk(cancelled_);
    for (const auto& directory : directories_)
        walk.visit(directory);
    return std::move(walk.files());
}

std::vector<MusicFile> LibraryScan::takeKnown(std::vector<MusicFile> files) {
    std::unordered_map<std::string_view, LibraryEntry*> known;
    known.reserve(indexed_.size());
    for (LibraryEntry& entry : indexed_)
        known.emplace(entry.file.path, &entry);
    std::vector<MusicFile> unread;
    entries_.reserve(files.size());
    for (MusicFile& file : files) {
        const auto found = known.find(file.path);
        if (found != known.end() && found->second->file == file)
            entries_.push_back({std::move(file), std::move(found->second->tags)});
        else
            unread.push_back(std::move(file));
    }
    return unread;
}

void LibraryScan::readFiles(const std::vector<MusicFile>& files) {
    TagProcess reader;
    std::size_t nextPublishing = entries_.size() + std::max(firstSongs, entries_.size() / 2);
    for (const MusicFile& file : files) {
        if (cancelled_)
            return;
        entries_.push_back({file, reader.read(file.path)});
        if (entries_.size() < nextPublishing)
            continue;
        nextPublishing += std::max(firstSongs, entries_.size() / 2);
        publishEntries();
        index_.write(entries_); // so that a start that is cut short is not in vain
    }
}

void LibraryScan::publishEntries() {
    latest_ = std::make_shared<const SongList>(entries_, *latest_);
    publish_(latest_);
}

} // namespace playback
