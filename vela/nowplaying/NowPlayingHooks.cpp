#include "vela/nowplaying/NowPlayingHooks.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/RunLoop.h"
#include "platform/homescreen/SBApplication.h"
#include "platform/homescreen/SBApplicationController.h"
#include "platform/runtime/Boolean.h"
#include "platform/runtime/Message.h"
#include "vela/nowplaying/NowPlayingState.h"
#include "vela/nowplaying/TrackChange.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/ModuleState.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::NotificationCenter;
using foundation::RunLoop;
using toolkit::CADisplayLink;
using toolkit::UIView;

namespace vela::nowplaying {

namespace {

constexpr double captionFade = 0.3; // seconds
constexpr const char* musicApplication = "com.apple.Music";
constexpr const char* radioCaption = "Radio";

const runtime::Message<bool()> isPlaying{"isPlaying"};

/// The host's own flag, which it has no message for.
bool isRadioStation(const Object& controls) {
    const auto flag = controls.isa().instanceVariable(controls, "_nowPlayingIsRadioStation");
    const auto* boolean = dynamic_cast<const runtime::Boolean*>(flag.get());
    return boolean && boolean->value();
}

std::string displayName(const std::string& bundleIdentifier) {
    const auto application =
        homescreen::SBApplicationController::sharedInstance().applicationWithBundleIdentifier(
            bundleIdentifier);
    return application ? application->displayName() : std::string();
}

void fadeCaption(const Object& controls, const std::string& bundleIdentifier) {
    const auto& right = moduleState().right;
    if (!right)
        return;
    const auto& caption = right->applicationLabel();
    UIView::transitionCrossDissolve(*caption, captionFade, [&] {
        caption->setText(isRadioStation(controls) ? radioCaption : displayName(bundleIdentifier));
    });
}

void startAutoscroll(Object& controls) {
    auto& link = nowPlayingState().displayLink;
    if (link)
        return;
    link = CADisplayLink::displayLinkWithTarget(controls, "scrollLyric");
    link->addToRunLoop(RunLoop::main(), toolkit::RunLoopMode::Common);
}

void stopAutoscroll() {
    auto& link = nowPlayingState().displayLink;
    if (link)
        link->invalidate();
    link = nullptr;
}

} // namespace

void applicationDidChange(Object& self, Object* controller, std::optional<std::string> bundleIdentifier) {
    originalApplicationDidChange(self, controller, bundleIdentifier);
    fadeCaption(self, bundleIdentifier.value_or(musicApplication));
}

void playbackStateDidChange(Object& self, Object* controller, bool playing) {
    originalPlaybackStateDidChange(self, controller, playing);
    const bool autoscroll =
        VelaSettingsManager::sharedInstance().getPreferenceForKey(keys::autoscroll).boolValue();
    if (autoscroll && playing && !isRadioStation(self))
        startAutoscroll(self);
    else
        stopAutoscroll();
}

void infoDidChange(Object& self, Object* controller, PropertyList info) {
    originalInfoDidChange(self, controller, info);
    // A new track is captioned with the phone's own player, whichever application plays; a change of the
    // application itself says which.
    fadeCaption(self, musicApplication);
    NotificationCenter::defaultCenter().post(trackDidChangeNotification, info);
    if (!moduleState().right)
        return;
    if (info.isNil())
        showNoTrack(*moduleState().right);
    else if (isPlaying(controller))
        showTrack(*moduleState().right, info, isRadioStation(self) ? Source::Radio : Source::Song);
}

void elapsedTimeDidChange(Object& self, Object* controller, double elapsed) {
    originalElapsedTimeDidChange(self, controller, elapsed);
    if (isRadioStation(self))
        return;
    NotificationCenter::defaultCenter().post(elapsedTimeDidChangeNotification, elapsed);
    nowPlayingState().elapsed = static_cast<float>(elapsed);
}

void launchCurrentNowPlayingApp(Object& self) {
    originalLaunchCurrentNowPlayingApp(self);
    const ModuleState& state = moduleState();
    if (state.leftGrabber)
        state.leftGrabber->dismissControllerWithTap();
    if (state.rightGrabber)
        state.rightGrabber->dismissControllerWithTap();
}

} // namespace vela::nowplaying
