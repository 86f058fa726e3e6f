// An engine that also understands the addresses of stream lists, which is what most web radios give out.
//
// It reads the list and has another engine play the first stream of it, and the next one when that fails.
#pragma once

#include "hosts/media/PlaybackEngine.h"
#include "platform/foundation/URLSession.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>

namespace playback {

class StreamListEngine final : public PlaybackEngine {
public:
    /// There must be a main loop when a list is loaded.
    explicit StreamListEngine(std::unique_ptr<PlaybackEngine> engine);
    ~StreamListEngine() override;

    void setEvents(PlaybackEvents events) override;
    void load(const std::string& uri, double expectedDuration) override;
    void unload() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override { engine_->seek(seconds); }
    PlaybackState state() const override;
    double position() const override { return engine_->position(); }
    double duration() const override { return engine_->duration(); }
    double volume() const override { return engine_->volume(); }
    void setVolume(double volume) override { engine_->setVolume(volume); }

private:
    /// Who waits for the list; gone when nobody does any more.
    using Reader = std::function<void(const foundation::URLAnswer& answer)>;

    void readList(const std::string& address);
    void forgetList();
    /// Tells `reason` as the failure when there is no other stream.
    void playNextStream(const std::string& reason);

    std::unique_ptr<PlaybackEngine> engine_;
    PlaybackEvents events_;
    foundation::URLSession session_;
    foundation::URLSessionTask task_;
    std::shared_ptr<Reader> reader_;  // while the list is being read
    std::deque<std::string> streams_; // not tried yet
    bool wanted_ = false;             // whether it is to sound, as soon as it can
};

} // namespace playback
