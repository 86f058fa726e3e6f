// A player without sound: time passes on the run loop's clock, and that is all.
//
// On a virtual clock it makes playing exact and repeatable. What is no file of this machine counts as a
// stream without an end; a file lasts as long as it was said to.
#pragma once

#include "hosts/media/PlaybackEngine.h"
#include "platform/foundation/Handle.h"

namespace phone {

class VirtualPlaybackEngine final : public playback::PlaybackEngine {
public:
    void setEvents(playback::PlaybackEvents events) override { events_ = std::move(events); }
    void load(const std::string& uri, double expectedDuration) override;
    void unload() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    playback::PlaybackState state() const override { return state_; }
    double position() const override;
    double duration() const override { return duration_; }
    double volume() const override { return volume_; }
    void setVolume(double volume) override;

private:
    void waitForEnd();
    void end();
    void fail(const std::string& reason);

    playback::PlaybackEvents events_;
    playback::PlaybackState state_ = playback::PlaybackState::Stopped;
    double duration_ = 0;
    double position_ = 0; // where it stood at `since_`
    double since_ = 0;    // run loop time
    double volume_ = 1;
    foundation::Handle end_;
};

} // namespace phone
