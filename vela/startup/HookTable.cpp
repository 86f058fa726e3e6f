#include "vela/startup/HookTable.h"

#include "vela/nowplaying/Autoscroll.h"
#include "vela/nowplaying/NowPlayingHooks.h"
#include "vela/panels/BlurChoice.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/LaunchAssembly.h"
#include "vela/startup/MediaItemProperties.h"
#include "vela/startup/Rotation.h"
#include "vela/startup/ScreenGeometry.h"
#include "vela/startup/SystemEvents.h"

#include "platform/runtime/Hooking.h"

namespace vela {

namespace {

using runtime::Object;

template <class R, class... A>
Hook replaced(const char* className, const char* selector, R (*replacement)(Object&, A...),
              std::function<R(Object&, A...)>& original) {
    return {className, selector, HookKind::Replaced, [=, &original] {
                return runtime::replaceMethod(className, selector,
                                              std::function<R(Object&, A...)>(replacement), original);
            }};
}

template <class R, class... A>
Hook added(const char* className, const char* selector, R (*method)(Object&, A...)) {
    return {className, selector, HookKind::Added,
            [=] { return runtime::addMethod(className, selector, std::function<R(Object&, A...)>(method)); }};
}

std::vector<Hook> springBoardHooks() {
    constexpr const char* cls = "SpringBoard";
    return {
        replaced(cls, "applicationDidFinishLaunching:", launch::applicationDidFinishLaunching,
                 launch::originalApplicationDidFinishLaunching),
        added(cls, "darkingWindow", launch::darkingWindowAccessor),
        added(cls, "getScreenImage", blur::getScreenImage),
        added(cls, "getScreenFrameByOrientation:", geometry::getScreenFrameByOrientation),
        added(cls, "velaCycler", availability::velaCycler),
        added(cls, "getOffID", availability::getOffID),
        added(cls, "rightScalePortrait", geometry::rightScalePortrait),
        added(cls, "rightScaleLandscape", geometry::rightScaleLandscape),
        added(cls, "leftScalePortrait", geometry::leftScalePortrait),
        added(cls, "leftScaleLandscape", geometry::leftScaleLandscape),
        added(cls, "rightSize", geometry::rightSize),
        added(cls, "leftSize", geometry::leftSize),
        added(cls, "leftSizeForOrientation:", geometry::leftSizeForOrientation),
        added(cls, "rightSizeForOrientation:", geometry::rightSizeForOrientation),
        added(cls, "velaWillRotate:isSpring:", rotation::velaWillRotate),
        added(cls, "socialWindow", launch::socialWindowAccessor),
        added(cls, "leftGrabberWindow", launch::leftGrabberAccessor),
        added(cls, "rightGrabberWindow", launch::rightGrabberAccessor),
        added(cls, "dismissVela", events::dismissVela),
    };
}

std::vector<Hook> nowPlayingHooks() {
    constexpr const char* cls = "MPUSystemMediaControlsViewController";
    namespace now = nowplaying;
    return {
        replaced(cls, "nowPlayingController:nowPlayingApplicationDidChange:", now::applicationDidChange,
                 now::originalApplicationDidChange),
        replaced(cls, "nowPlayingController:playbackStateDidChange:", now::playbackStateDidChange,
                 now::originalPlaybackStateDidChange),
        replaced(cls, "nowPlayingController:nowPlayingInfoDidChange:", now::infoDidChange,
                 now::originalInfoDidChange),
        replaced(cls, "nowPlayingController:elapsedTimeDidChange:", now::elapsedTimeDidChange,
                 now::originalElapsedTimeDidChange),
        added(cls, "scrollLyric", now::scrollLyric),
        replaced(cls, "_launchCurrentNowPlayingApp", now::launchCurrentNowPlayingApp,
                 now::originalLaunchCurrentNowPlayingApp),
    };
}

std::vector<Hook> systemEventHooks() {
    return {
        replaced("SBUIController", "clickedMenuButton", events::clickedMenuButton,
                 events::originalClickedMenuButton),
        replaced("SBUIController", "handleMenuDoubleTap", events::handleMenuDoubleTap,
                 events::originalHandleMenuDoubleTap),
        replaced("SBLockScreenViewController", "_handleDisplayTurnedOff", events::handleDisplayTurnedOff,
                 events::originalHandleDisplayTurnedOff),
    };
}

std::vector<Hook> mediaItemHooks() {
    constexpr const char* cls = "MPMediaItem";
    return {
        added(cls, "songTitle", mediaitem::songTitle),
        added(cls, "setSongTitle:", mediaitem::setSongTitle),
        added(cls, "songArtist", mediaitem::songArtist),
        added(cls, "setSongArtist:", mediaitem::setSongArtist),
        added(cls, "songArtwork", mediaitem::songArtwork),
        added(cls, "setSongArtwork:", mediaitem::setSongArtwork),
    };
}

std::vector<Hook> volumeHooks() {
    constexpr const char* volumeView = "MPUMediaControlsVolumeView";
    return {
        replaced("SBHUDController", "presentHUDView:autoDismissWithDelay:", events::presentHUDView,
                 events::originalPresentHUDView),
        replaced(volumeView, "_volumeSliderBeganChanging:", events::volumeSliderBeganChanging,
                 events::originalVolumeSliderBeganChanging),
        replaced(volumeView, "_volumeSliderStoppedChanging:", events::volumeSliderStoppedChanging,
                 events::originalVolumeSliderStoppedChanging),
    };
}

} // namespace

const std::vector<Hook>& hookTable() {
    static const auto& table = *[] {
        auto* all = new std::vector<Hook>; // never torn down
        for (auto group :
             {springBoardHooks(), nowPlayingHooks(), systemEventHooks(), mediaItemHooks(), volumeHooks()})
            all->insert(all->end(), group.begin(), group.end());
        return all;
    }();
    return table;
}

void installHooks() {
    for (const Hook& hook : hookTable())
        hook.install();
}

} // namespace vela
