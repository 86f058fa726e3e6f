// What makes a song or a stream sound: one thing at a time, from a file or from the network.
//
// Main thread; every event comes on the main thread too, from a turn of the run loop and never from within a
// call of this interface. Nothing throws: what goes wrong comes as a `failed` event.
#pragma once

#include <functional>
#include <string>

namespace playback {

enum class PlaybackState { Stopped, Paused, Playing };

/// What an engine tells. Events of what was loaded before never come after a load(); any may be empty.
struct PlaybackEvents {
    /// The length has become known, or has become better known; seconds, 0 for a stream without an end.
    std::function<void(double seconds)> durationChanged;
    /// A stream names what it plays now (its ICY title, usually "Artist - Title"): whatever it sends, as
    /// UTF-8 without characters of NUL, possibly empty, possibly very long.
    std::function<void(const std::string& title)> streamTitleChanged;
    /// It has been played to its end; the state is Stopped.
    std::function<void()> ended;
    /// It cannot be played, or no further; the state is Stopped. The reason is for a log.
    std::function<void(const std::string& reason)> failed;
};

class PlaybackEngine {
public:
    virtual ~PlaybackEngine() = default;

    virtual void setEvents(PlaybackEvents events) = 0;

    /// Lets go of what was loaded and makes `uri` ready, paused at its beginning. "file:", "http:" and
    /// "https:" are understood; `expectedDuration`, seconds, is what is said to be its length, 0 for unknown.
    virtual void load(const std::string& uri, double expectedDuration) = 0;
    /// Lets go of what was loaded.
    virtual void unload() = 0;

    /// At once for `state()`, whenever it sounds. Nothing happens when nothing is loaded.
    virtual void play() = 0;
    virtual void pause() = 0;
    /// To `seconds` from the beginning, at most to the end. A stream without an end stays where it is.
    virtual void seek(double seconds) = 0;

    virtual PlaybackState state() const = 0;
    /// Seconds from the beginning; that of the latest seek() as soon as it was called.
    virtual double position() const = 0;
    /// Seconds; 0 when it is not known or there is no end.
    virtual double duration() const = 0;

    /// From 0 to 1, as a hand sets it (not in proportion to the amplitude). Kept from one song to the next.
    virtual double volume() const = 0;
    virtual void setVolume(double volume) = 0;
};

} // namespace playback
