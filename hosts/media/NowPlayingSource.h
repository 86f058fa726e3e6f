// One player among those that may be playing: the host's own, or another application's.
//
// Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/foundation/PropertyList.h"
#include "platform/media/MediaPort.h"

#include <functional>
#include <string>

namespace playback {

class NowPlayingSource {
public:
    /// What has changed; several at once come as several calls, in this order.
    enum class Change { Playing, Info, Elapsed, Volume };

    virtual ~NowPlayingSource() = default;

    /// Stands for the player's application: "com.apple.Music", or what another one is known by.
    virtual std::string bundleIdentifier() const = 0;
    /// The application's name for people.
    virtual std::string displayName() const = 0;

    virtual bool isPlaying() const = 0;
    /// Whether what plays is a radio station's stream.
    virtual bool isRadioStation() const = 0;
    /// A dictionary with the keys of platform/media/NowPlayingInfo.h; nil while there is nothing to play.
    virtual foundation::PropertyList nowPlayingInfo() const = 0;
    /// Seconds from the song's beginning, as of now.
    virtual double elapsed() const = 0;

    virtual void perform(media::RemoteCommand command) = 0;
    virtual void seek(double seconds) = 0;
    /// The player's own volume, from 0 to 1; nothing happens when it has none.
    virtual void setVolume(double volume) = 0;
    /// Brings the player's own window to the front, if it can be.
    virtual void launch() = 0;

    /// Calls `changed` on every change. Elapsed is for leaps (a seek, another song): how it advances while
    /// playing need not be told.
    virtual foundation::Handle addObserver(std::function<void(Change)> changed) = 0;
};

} // namespace playback
