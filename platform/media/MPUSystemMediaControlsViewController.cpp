#include "platform/media/MPUSystemMediaControlsViewController.h"

#include "platform/foundation/RunLoop.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/views/UIVisualEffectView.h"

using runtime::Object;
using namespace toolkit;

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

namespace {

constexpr std::int64_t lightStyle = 1;
const Color lightSigns = Color::white(1), darkSigns = Color::white(0, 0.78);
/// Stands for what plays while nothing does.
constexpr const char* musicApplication = "com.apple.Music";

std::string text(const foundation::PropertyList& info, const char* key) {
    const std::string* text = info[key].string();
    return text ? *text : std::string();
}

/// The blur of the nearest glass that lies beneath a view, in it or in what it stands in.
std::optional<BlurEffectStyle> glassBeneath(const UIView& view) {
    for (const UIView* upper = &view; upper->superview(); upper = upper->superview()) {
        std::optional<BlurEffectStyle> nearest;
        for (const auto& sibling : upper->superview()->subviews()) {
            if (sibling.get() == upper)
                break;
            const auto* glass = dynamic_cast<const UIVisualEffectView*>(sibling.get());
            if (glass && glass->effect() && !glass->isHidden())
                nearest = glass->effect()->style;
        }
        if (nearest)
            return nearest;
    }
    return std::nullopt;
}

} // namespace

Self::MPUSystemMediaControlsViewController(std::int64_t style) : style_(style) {}

void Self::loadView() {
    mediaControlsView_ = std::make_shared<MPUMediaControlsView>();
    mediaControlsView_->setActions({[](RemoteCommand command) {
                                        if (MediaPort* port = MediaPort::current())
                                            port->perform(command);
                                    },
                                    [](double seconds) {
                                        if (MediaPort* port = MediaPort::current())
                                            port->seek(seconds);
                                    },
                                    [this] { _launchCurrentNowPlayingApp(); }});
    setView(mediaControlsView_);
    if (const auto self = std::static_pointer_cast<Self>(weak_from_this().lock()))
        MPUNowPlayingController::sharedController().addControls(self);
    adaptToGlass();
    // Whose glass it is changes it without a word.
    glass_ =
        foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Layout, [this] { adaptToGlass(); });
}

void Self::adaptToGlass() {
    const auto glass = glassBeneath(*mediaControlsView_);
    const bool light = glass ? *glass == BlurEffectStyle::Dark : style_ == lightStyle;
    if (lightSigns_ != light)
        mediaControlsView_->setColor(light ? lightSigns : darkSigns);
    lightSigns_ = light;
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

void Self::hostApplicationDidChange(Object*, std::optional<std::string> bundleIdentifier) {
    bundleIdentifier_ = std::move(bundleIdentifier);
}

void Self::hostPlaybackStateDidChange(Object*, bool playing) {
    if (mediaControlsView_)
        mediaControlsView_->setPlaying(playing);
}

void Self::hostInfoDidChange(Object*, foundation::PropertyList info) {
    if (mediaControlsView_)
        showInfo(info);
}

void Self::hostElapsedTimeDidChange(Object*, double elapsed) {
    if (mediaControlsView_)
        mediaControlsView_->timeView()->setElapsedTime(elapsed);
}

void Self::hostLaunchCurrentNowPlayingApp() {
    if (MediaPort* port = MediaPort::current())
        port->launchApplication(bundleIdentifier_.value_or(musicApplication));
}

void Self::volumeDidChange(double volume) {
    if (mediaControlsView_)
        mediaControlsView_->volumeView()->setVolume(volume);
}

void Self::showInfo(const foundation::PropertyList& info) {
    const std::string title = text(info, kMRMediaRemoteNowPlayingInfoTitle),
                      station = text(info, kMRMediaRemoteNowPlayingInfoRadioStationName),
                      artist = text(info, kMRMediaRemoteNowPlayingInfoArtist),
                      album = text(info, kMRMediaRemoteNowPlayingInfoAlbum);
    MPUMediaControlsView& view = *mediaControlsView_;
    view.setTitle(title.empty() ? station : title);
    const std::string& place = title.empty() ? album : station.empty() ? album : station;
    view.setSubtitle(artist.empty() || place.empty() ? artist + place : artist + " — " + place);
    view.timeView()->setAlwaysLive(nowPlayingIsRadioStation());
    view.timeView()->setTotalDuration(info[kMRMediaRemoteNowPlayingInfoDuration].doubleValue());
    if (info.isNil())
        view.timeView()->setElapsedTime(0);
}

} // namespace media
