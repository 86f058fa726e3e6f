#include "hosts/media/engine/GStreamerEngine.h"

#include "hosts/media/engine/Pipeline.h"
#include "platform/foundation/RunLoop.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace playback {

namespace {

bool isUnderstood(const std::string& uri) {
    return uri.starts_with("file:") || uri.starts_with("http:") || uri.starts_with("https:");
}

} // namespace

/// Used on the main thread only: whether the engine still stands.
struct GStreamerEngine::Life {
    bool ended = false;
};

GStreamerEngine::GStreamerEngine() : life_(std::make_shared<Life>()), pipeline_(makePipeline()) {}

GStreamerEngine::~GStreamerEngine() {
    life_->ended = true;
    perform(&Pipeline::unload);
}

std::unique_ptr<Pipeline> GStreamerEngine::makePipeline() {
    Pipeline::Events events;
    events.durationChanged = [this](LoadNumber load, double seconds) {
        onMain(load, [this, seconds] {
            duration_ = seconds;
            if (const auto changed = events_.durationChanged)
                changed(seconds);
        });
    };
    events.streamTitleChanged = [this](LoadNumber load, const std::string& title) {
        onMain(load, [this, title] {
            if (const auto changed = events_.streamTitleChanged)
                changed(title);
        });
    };
    events.settled = [this](LoadNumber load, SeekNumber seek) {
        onMain(load, [this, seek] { settled_ = settled_ || seek == seek_; });
    };
    events.ended = [this](LoadNumber load) {
        onMain(load, [this] {
            stop();
            if (const auto ended = events_.ended)
                ended();
        });
    };
    events.failed = [this](LoadNumber load, const std::string& reason) {
        onMain(load, [this, reason] { fail(reason); });
    };
    events.perform = [this](std::function<void()> work) { thread_.add(std::move(work)); };
    return std::make_unique<Pipeline>(std::move(events));
}

void GStreamerEngine::perform(std::function<void(Pipeline&)> work) {
    thread_.add([pipeline = pipeline_.get(), work = std::move(work)] { work(*pipeline); });
}

void GStreamerEngine::onMain(std::uint64_t load, std::function<void()> block) {
    foundation::RunLoop::main().performOnMain([this, life = life_, load, block = std::move(block)] {
        if (!life->ended && load == load_)
            block();
    });
}

void GStreamerEngine::load(const std::string& uri, double expectedDuration) {
    stop();
    state_ = PlaybackState::Paused;
    duration_ = std::isfinite(expectedDuration) ? std::max(0.0, expectedDuration) : 0;
    if (isUnderstood(uri))
        perform([load = load_, uri](Pipeline& pipeline) { pipeline.load(load, uri); });
    else
        onMain(load_, [this] { fail("its address is not one that is played"); });
}

void GStreamerEngine::unload() {
    if (state_ == PlaybackState::Stopped)
        return;
    stop();
    perform(&Pipeline::unload);
}

void GStreamerEngine::stop() {
    ++load_;
    state_ = PlaybackState::Stopped;
    duration_ = 0;
    position_ = 0;
    settled_ = false;
}

void GStreamerEngine::fail(const std::string& reason) {
    stop();
    if (const auto failed = events_.failed)
        failed(reason);
}

void GStreamerEngine::play() {
    if (state_ != PlaybackState::Paused)
        return;
    state_ = PlaybackState::Playing;
    perform([](Pipeline& pipeline) { pipeline.setPlaying(true); });
}

void GStreamerEngine::pause() {
    if (state_ != PlaybackState::Playing)
        return;
    position_ = position();
    state_ = PlaybackState::Paused;
    perform([](Pipeline& pipeline) { pipeline.setPlaying(false); });
}

void GStreamerEngine::seek(double seconds) {
    if (state_ == PlaybackState::Stopped || duration_ <= 0 || std::isnan(seconds))
        return;
    position_ = std::clamp(seconds, 0.0, duration_);
    settled_ = false;
    perform([number = ++seek_, target = position_](Pipeline& pipeline) { pipeline.seek(number, target); });
}

double GStreamerEngine::position() const {
    if (settled_ && state_ != PlaybackState::Stopped)
        if (const auto known = pipeline_->position())
            position_ = duration_ > 0 ? std::min(*known, duration_) : *known;
    return position_;
}

void GStreamerEngine::setVolume(double volume) {
    if (std::isnan(volume))
        return;
    volume_ = std::clamp(volume, 0.0, 1.0);
    // Ears hear by the logarithm; the third power comes near it and reaches silence.
    perform([factor = volume_ * volume_ * volume_](Pipeline& pipeline) { pipeline.setVolume(factor); });
}

} // namespace playback
