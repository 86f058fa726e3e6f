#include "platform/media/MPUSystemMediaControlsViewController.h"

#include "platform/runtime/Message.h"

using runtime::Object;

namespace media {

using Self = MPUSystemMediaControlsViewController;

runtime::Class& Self::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<Self>("MPUSystemMediaControlsViewController", &UIViewController::staticClass())
            .method("nowPlayingController:nowPlayingApplicationDidChange:", &Self::hostApplicationDidChange)
            .method("nowPlayingController:playbackStateDidChange:", &Self::hostPlaybackStateDidChange)
            .method("nowPlayingController:nowPlayingInfoDidChange:", &Self::hostInfoDidChange)
            .method("nowPlayingController:elapsedTimeDidChange:", &Self::hostElapsedTimeDidChange)
            .method("_launchCurrentNowPlayingApp", &Self::hostLaunchCurrentNowPlayingApp)
            .instanceVariable("_mediaControlsView", &Self::mediaControlsView_)
            .instanceVariable("_nowPlayingIsRadioStation", &Self::nowPlayingIsRadioStation_)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUSystemMediaControlsViewController)

Self::MPUSystemMediaControlsViewController(std::int64_t style) : style_(style) {}

void Self::loadView() {
    mediaControlsView_ = std::make_shared<MPUMediaControlsView>();
    setView(mediaControlsView_);
}

void Self::nowPlayingApplicationDidChange(Object* controller, std::optional<std::string> bundleIdentifier) {
    static const runtime::Message<void(Object*, std::optional<std::string>)> message{
        "nowPlayingController:nowPlayingApplicationDidChange:"};
    message(*this, controller, std::move(bundleIdentifier));
}

void Self::playbackStateDidChange(Object* controller, bool playing) {
    static const runtime::Message<void(Object*, bool)> message{
        "nowPlayingController:playbackStateDidChange:"};
    message(*this, controller, playing);
}

void Self::nowPlayingInfoDidChange(Object* controller, foundation::PropertyList info) {
    static const runtime::Message<void(Object*, foundation::PropertyList)> message{
        "nowPlayingController:nowPlayingInfoDidChange:"};
    message(*this, controller, std::move(info));
}

void Self::elapsedTimeDidChange(Object* controller, double elapsed) {
    static const runtime::Message<void(Object*, double)> message{
        "nowPlayingController:elapsedTimeDidChange:"};
    message(*this, controller, elapsed);
}

void Self::_launchCurrentNowPlayingApp() {
    static const runtime::Message<void()> message{"_launchCurrentNowPlayingApp"};
    message(*this);
}

// Without a player behind them the controls have nothing to show of what is reported.
void Self::hostApplicationDidChange(Object*, std::optional<std::string>) {}
void Self::hostPlaybackStateDidChange(Object*, bool) {}
void Self::hostInfoDidChange(Object*, foundation::PropertyList) {}
void Self::hostElapsedTimeDidChange(Object*, double) {}
void Self::hostLaunchCurrentNowPlayingApp() {}

} // namespace media
