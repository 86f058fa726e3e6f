#include "platform/media/MPUNowPlayingController.h"

#include "platform/foundation/RunLoop.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/media/NowPlayingInfo.h"

#include <algorithm>
#include <cmath>

namespace media {

runtime::Class& MPUNowPlayingController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUNowPlayingController>("MPUNowPlayingController", &Object::staticClass())
            .method("isPlaying", &MPUNowPlayingController::isPlaying)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUNowPlayingController)

MPUNowPlayingController& MPUNowPlayingController::sharedController() {
    static auto& controller = *new MPUNowPlayingController; // never torn down
    return controller;
}

double MPUNowPlayingController::currentDuration() const {
    const double duration = info_[kMRMediaRemoteNowPlayingInfoDuration].doubleValue();
    return std::isfinite(duration) ? std::max(0.0, duration) : 0;
}

void MPUNowPlayingController::setRadioStation(bool radioStation) {
    radioStation_ = radioStation;
    for (const auto& each : controls())
        each->setNowPlayingIsRadioStation(radioStation);
}

void MPUNowPlayingController::applicationDidChange(std::optional<std::string> bundleIdentifier) {
    bundleIdentifier_ = std::move(bundleIdentifier);
    for (const auto& each : controls())
        each->nowPlayingApplicationDidChange(this, bundleIdentifier_);
}

void MPUNowPlayingController::playbackStateDidChange(bool playing) {
    playing_ = playing;
    for (const auto& each : controls())
        each->playbackStateDidChange(this, playing);
}

void MPUNowPlayingController::infoDidChange(foundation::PropertyList info) {
    info_ = std::move(info);
    for (const auto& each : controls())
        each->nowPlayingInfoDidChange(this, info_);
}

void MPUNowPlayingController::elapsedTimeDidChange(double seconds) {
    elapsed_ = seconds;
    for (const auto& each : controls())
        each->elapsedTimeDidChange(this, seconds);
}

void MPUNowPlayingController::volumeDidChange(double volume) {
    volume_ = volume;
    for (const auto& each : controls())
        each->volumeDidChange(volume);
}

void MPUNowPlayingController::addControls(
    const std::shared_ptr<MPUSystemMediaControlsViewController>& controls) {
    std::erase_if(controls_, [](const auto& each) { return each.expired(); });
    controls_.push_back(controls);
    controls->setNowPlayingIsRadioStation(radioStation_);
    controls->volumeDidChange(volume_);
    // Whoever makes controls is to have put them in their place before they hear anything.
    foundation::RunLoop::main().performOnMain([this, added = std::weak_ptr(controls)] {
        if (const auto still = added.lock())
            tellHowThingsStand(*still);
    });
}

void MPUNowPlayingController::tellHowThingsStand(MPUSystemMediaControlsViewController& controls) {
    controls.nowPlayingApplicationDidChange(this, bundleIdentifier_);
    if (info_.isNil())
        return;
    controls.playbackStateDidChange(this, playing_);
    controls.nowPlayingInfoDidChange(this, info_);
    controls.elapsedTimeDidChange(this, elapsed_);
}

std::vector<std::shared_ptr<MPUSystemMediaControlsViewController>> MPUNowPlayingController::controls() const {
    std::vector<std::shared_ptr<MPUSystemMediaControlsViewController>> present;
    for (const auto& each : controls_)
        if (auto controls = each.lock())
            present.push_back(std::move(controls));
    return present;
}

} // namespace media
