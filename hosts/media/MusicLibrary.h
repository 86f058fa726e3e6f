// The songs in a few directories of audio files.
//
// Main thread, but for artworkData() and lyrics(), which may be called on any thread. Directories are read
// away from the main thread, and no turn of the main loop takes long, however many files there are.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/media/MPMediaItem.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace playback {

class MusicLibrary {
public:
    virtual ~MusicLibrary() = default;

    /// Takes a directory and what lies below it into the library, and reads it in the background. A directory
    /// that is there already is read again: new, changed and removed files show up.
    virtual void addDirectory(const std::filesystem::path& directory) = 0;
    /// In the order in which they were added.
    virtual const std::vector<std::filesystem::path>& directories() const = 0;
    /// Whether directories are being read now.
    virtual bool isScanning() const = 0;

    /// All songs known so far, ordered by artist, album, disc, track, title and path; never null. Items of
    /// unchanged files stay the same objects from list to list. Every item has a persistent identifier (made
    /// from its path: the same at every start, over 0 and different from all others), a title (the file's
    /// name when it has no tag), a duration and the address of its file; what else its tags hold.
    virtual media::SharedMediaItems songs() const = 0;
    /// The song with that persistent identifier, or null.
    virtual std::shared_ptr<media::MPMediaItem> song(std::int64_t persistentID) const = 0;

    /// Calls `changed` in a turn of the main loop whenever songs() answers another list, or scanning begins
    /// or ends.
    virtual foundation::Handle addObserver(std::function<void()> changed) = 0;

    /// The embedded cover's bytes, a picture's file of bounded size; empty when there is none. Any thread.
    virtual std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const = 0;
    /// The embedded words, in UTF-8; nothing when there are none. Any thread.
    virtual std::optional<std::string> lyrics(std::int64_t persistentID) const = 0;
};

} // namespace playback
