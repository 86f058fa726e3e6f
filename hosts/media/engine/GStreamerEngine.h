// The engine that sounds: MP3, FLAC, Ogg, Opus, AAC and what else GStreamer plays, from files and over HTTP.
//
// Without anything to hear sound with it plays silently, in real time. Nothing here waits: all that may take
// time happens on a thread of its own.
#pragma once

#include "hosts/media/PlaybackEngine.h"
#include "hosts/media/engine/SerialThread.h"

#include <cstdint>
#include <memory>

namespace playback {

class Pipeline;

class GStreamerEngine final : public PlaybackEngine {
public:
    GStreamerEngine();
    GStreamerEngine(const GStreamerEngine&) = delete;
    GStreamerEngine& operator=(const GStreamerEngine&) = delete;
    ~GStreamerEngine() override;

    void setEvents(PlaybackEvents events) override { events_ = std::move(events); }
    void load(const std::string& uri, double expectedDuration) override;
    void unload() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    PlaybackState state() const override { return state_; }
    double position() const override;
    double duration() const override { return duration_; }
    double volume() const override { return volume_; }
    void setVolume(double volume) override;

private:
    struct Life;

    void perform(std::function<void(Pipeline&)> work);
    /// Calls the block on the main thread if this engine still stands and `load` is what is loaded then.
    void onMain(std::uint64_t load, std::function<void()> block);
    std::unique_ptr<Pipeline> makePipeline();
    void stop();
    void fail(const std::string& reason);

    PlaybackEvents events_;
    PlaybackState state_ = PlaybackState::Stopped;
    double volume_ = 1;
    double duration_ = 0;
    std::uint64_t load_ = 0;
    std::uint64_t seek_ = 0;
    /// Where it was last known to be or was told to go; the pipeline knows better once it has settled there.
    mutable double position_ = 0;
    bool settled_ = false;

    std::shared_ptr<Life> life_;
    std::unique_ptr<Pipeline> pipeline_; // ends after its thread
    SerialThread thread_;
};

} // namespace playback
