// What a host answers for the media classes: the one interface between them and the world's music.
//
// The host owns its port, sets it before the home screen launches and keeps it until the process ends. Main
// thread, but for artworkData() and lyrics(), which are called on any thread. What plays is reported the
// other way round, by the host's calls of MPUNowPlayingController.
#pragma once

#include "platform/media/MPMediaItem.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace media {

/// What remote controls ask of whatever plays now.
enum class RemoteCommand { Play, Pause, TogglePlayPause, NextTrack, PreviousTrack };

class MediaPort {
public:
    /// The process's port, or null before a host has set one. Any thread.
    static MediaPort* current();
    static void setCurrent(MediaPort* port);

    virtual ~MediaPort() = default;

    // The library.

    /// All songs, in the library's order; never null. Handing them out costs nothing: as long as the library
    /// does not change, the answer is the same list.
    virtual SharedMediaItems songs() const = 0;
    /// The bytes of a song's cover as they are stored, a picture's file; empty when there is none. Any
    /// thread.
    virtual std::vector<std::uint8_t> artworkData(std::int64_t persistentID) const = 0;
    /// The words that lie in a song's file. Any thread.
    virtual std::optional<std::string> lyrics(std::int64_t persistentID) const = 0;

    // The system's music player. A host without one of its own ignores these.

    virtual void setQueue(const MediaItems& items) = 0;
    /// Makes a song of the queue the one to play; one that is not in the queue is left out.
    virtual void setNowPlayingItem(const std::shared_ptr<MPMediaItem>& item) = 0;
    virtual std::shared_ptr<MPMediaItem> nowPlayingItem() const = 0;
    /// Makes ready what play() begins with; the first of the queue when nothing was chosen.
    virtual void prepareToPlay() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    virtual void skipToNextItem() = 0;
    virtual void skipToPreviousItem() = 0;

    // Whatever plays now, in the player or in another application.

    virtual void perform(RemoteCommand command) = 0;
    /// Goes to `seconds` from the song's beginning; a stream stays where it is.
    virtual void seek(double seconds) = 0;
    /// From 0 to 1.
    virtual double volume() const = 0;
    virtual void setVolume(double volume) = 0;
    /// Brings an application that plays to the front.
    virtual void launchApplication(const std::string& bundleIdentifier) = 0;
};

} // namespace media
