// What decodes and sounds: GStreamer, on a thread of its own, since opening, closing and seeking may wait for
// a disk, a device or the network.
//
// Every method but position() is called on that one thread, and all of them but the last unload() before the
// pipeline goes. Events come on any thread.
#pragma once

#include <gst/gst.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace playback {

/// Counts what was loaded, one thing after the other, and so tells which of them an event is about.
using LoadNumber = std::uint64_t;
/// Counts the seeks.
using SeekNumber = std::uint64_t;

class Pipeline {
public:
    struct Events {
        std::function<void(LoadNumber, double seconds)> durationChanged;
        std::function<void(LoadNumber, const std::string& title)> streamTitleChanged;
        /// It stands where it was last told to: position() is right again.
        std::function<void(LoadNumber, SeekNumber)> settled;
        std::function<void(LoadNumber)> ended;
        std::function<void(LoadNumber, const std::string& reason)> failed;
        /// Does work on the pipeline's thread.
        std::function<void(std::function<void()> work)> perform;
    };

    explicit Pipeline(Events events) : events_(std::move(events)) {}
    Pipeline(const Pipeline&) = delete;
    Pipeline& operator=(const Pipeline&) = delete;
    ~Pipeline();

    /// Makes what stands at the address ready, paused at its beginning.
    void load(LoadNumber number, const std::string& uri);
    void unload();
    void setPlaying(bool playing);
    void seek(SeekNumber number, double seconds);
    /// The factor of the amplitude.
    void setVolume(double factor);

    /// Seconds from the beginning, when that is known now. Any thread.
    std::optional<double> position() const;

private:
    /// Stopped while something is loaded: a stream that nobody listens to.
    enum class Stage { Stopped, Preparing, Ready };

    bool makePlayer();
    void useSink(GstElement* sink);
    void start();
    void stop();
    void applyState();
    void seekNow(double seconds);
    void noteDuration();
    void fail(const std::string& reason);

    void handle(GstMessage* message);
    void handleReady();
    void handleEnd();
    void handleError(GstMessage* message);
    void handleTags(GstMessage* message);
    void handleBuffering(GstMessage* message);
    void goOnSilently();
    bool isEndlessStream() const;
    static GstBusSyncReply receive(GstBus*, GstMessage* message, gpointer pipeline);

    Events events_;
    std::atomic<GstElement*> player_ = nullptr; // a playbin, made by the first load()
    GstElement* sink_ = nullptr;                // the player's
    bool silent_ = false;
    std::atomic<std::uint64_t> run_ = 0; // counts starts and stops, to know what a message belongs to

    LoadNumber load_ = 0;
    SeekNumber seek_ = 0;
    std::string uri_; // empty when nothing is loaded
    Stage stage_ = Stage::Stopped;
    bool playing_ = false;
    bool buffering_ = false; // waits for the network
    std::optional<double> seekWhenReady_;
    double volume_ = 1;
    double duration_ = 0;
    std::string title_;
};

} // namespace playback
