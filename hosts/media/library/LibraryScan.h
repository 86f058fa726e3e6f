// One reading of the library's directories, away from the main thread.
//
// What the index says is published first, then what the directories hold, ever more of it when much has to be
// read.
#pragma once

#include "hosts/media/library/LibraryIndex.h"
#include "hosts/media/library/SongList.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace playback {

class LibraryScan {
public:
    using Publish = std::function<void(std::shared_ptr<const SongList>)>;

    /// `latest`: the songs that are known so far. The scan ends early when `cancelled` becomes true.
    LibraryScan(std::vector<std::filesystem::path> directories, LibraryIndex index,
                std::shared_ptr<const SongList> latest, const std::atomic<bool>& cancelled, Publish publish);

    /// Returns when everything has been read. `publish` is called on the way, on this thread.
    void run();

private:
    void publishIndex();
    std::vector<MusicFile> findFiles() const;
    /// Moves what is known of files into the entries, and answers the files of which nothing is.
    std::vector<MusicFile> takeKnown(std::vector<MusicFile> files);
    void readFiles(const std::vector<MusicFile>& files);
    void publishEntries();

    std::vector<std::filesystem::path> directories_;
    LibraryIndex index_;
    std::shared_ptr<const SongList> latest_;
    const std::atomic<bool>& cancelled_;
    Publish publish_;
    std::vector<LibraryEntry> indexed_;
    std::vector<LibraryEntry> entries_;
};

} // namespace playback
