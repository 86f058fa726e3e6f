#include "hosts/phone/music/VirtualPlaybackEngine.h"

#include "platform/foundation/RunLoop.h"

#include <gio/gio.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

using foundation::RunLoop;
using playback::PlaybackState;

namespace phone {

namespace {

bool isMissingFile(const std::string& uri) {
    if (!uri.starts_with("file:"))
        return false;
    const std::unique_ptr<gchar, decltype(&g_free)> path(g_filename_from_uri(uri.c_str(), nullptr, nullptr),
                                                         g_free);
    std::error_code error;
    return !path || !std::filesystem::is_regular_file(path.get(), error);
}

} // namespace

void VirtualPlaybackEngine::load(const std::string& uri, double expectedDuration) {
    unload();
    if (isMissingFile(uri)) {
        end_ = RunLoop::main().scheduleTimer(0, false, [this] { fail("there is no such file"); });
        return;
    }
    state_ = PlaybackState::Paused;
    duration_ = std::isfinite(expectedDuration) ? std::max(0.0, expectedDuration) : 0;
}

void VirtualPlaybackEngine::unload() {
    end_.reset();
    state_ = PlaybackState::Stopped;
    duration_ = 0;
    position_ = 0;
}

void VirtualPlaybackEngine::play() {
    if (state_ != PlaybackState::Paused)
        return;
    since_ = RunLoop::main().now();
    state_ = PlaybackState::Playing;
    waitForEnd();
}

void VirtualPlaybackEngine::pause() {
    if (state_ != PlaybackState::Playing)
        return;
    position_ = position();
    state_ = PlaybackState::Paused;
    end_.reset();
}

void VirtualPlaybackEngine::seek(double seconds) {
    if (state_ == PlaybackState::Stopped || duration_ <= 0 || std::isnan(seconds))
        return;
    position_ = std::clamp(seconds, 0.0, duration_);
    since_ = RunLoop::main().now();
    waitForEnd();
}

double VirtualPlaybackEngine::position() const {
    if (state_ != PlaybackState::Playing)
        return position_;
    const double position = position_ + (RunLoop::main().now() - since_);
    return duration_ > 0 ? std::min(position, duration_) : position;
}

void VirtualPlaybackEngine::setVolume(double volume) {
    volume_ = std::isnan(volume) ? volume_ : std::clamp(volume, 0.0, 1.0);
}

void VirtualPlaybackEngine::waitForEnd() {
    end_.reset();
    if (state_ == PlaybackState::Playing && duration_ > 0)
        end_ = RunLoop::main().scheduleTimer(duration_ - position_, false, [this] { end(); });
}

void VirtualPlaybackEngine::end() {
    unload();
    if (const auto ended = events_.ended)
        ended();
}

void VirtualPlaybackEngine::fail(const std::string& reason) {
    unload();
    if (const auto failed = events_.failed)
        failed(reason);
}

} // namespace phone
