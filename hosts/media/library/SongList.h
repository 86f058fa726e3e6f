// The library's songs at one moment: the items in their order, and found by their persistent identifiers.
//
// Never changes once it is made; may be made and used on any thread, the items but on the main thread.
#pragma once

#include "hosts/media/library/LibraryEntry.h"
#include "platform/media/MPMediaItem.h"

#include <memory>
#include <vector>

namespace playback {

class SongList {
public:
    SongList();
    /// The songs among `entries`, ordered by artist, album, disc, track, title and path, without regard to
    /// case. Songs whose files have not changed since `previous` keep their items.
    SongList(const std::vector<LibraryEntry>& entries, const SongList& previous);

    /// Never null.
    const media::SharedMediaItems& items() const { return items_; }
    /// Null when there is none.
    std::shared_ptr<media::MPMediaItem> item(std::int64_t persistentID) const;
    /// Of the song's file; empty when there is none.
    std::string path(std::int64_t persistentID) const;

private:
    /// As little as can be: there may be a hundred thousand.
    struct Song {
        std::int64_t persistentID; // which stands for the path
        std::int64_t modified;
        std::uint64_t size;
        std::shared_ptr<media::MPMediaItem> item;
    };
    const Song* find(std::int64_t persistentID) const;
    std::shared_ptr<media::MPMediaItem> itemFor(const LibraryEntry& entry, std::int64_t persistentID,
                                                const SongList& previous) const;

    std::vector<Song> songs_; // by persistent identifier
    media::SharedMediaItems items_;
};

} // namespace playback
