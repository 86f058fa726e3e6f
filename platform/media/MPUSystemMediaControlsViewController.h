// The system's now-playing controls, which others may host in a window of their own.
//
// What a now-playing controller reports arrives as messages, so that an extension can listen in by replacing
// them. `controller` is whoever reports, an MPUNowPlayingController. Two instance variables can be read by
// name:
// "_mediaControlsView" and the truth value "_nowPlayingIsRadioStation".
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/foundation/PropertyList.h"
#include "platform/media/MPUMediaControlsView.h"
#include "platform/runtime/Boolean.h"
#include "platform/toolkit/views/UIViewController.h"

#include <optional>
#include <string>

namespace media {

class MPUSystemMediaControlsViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// initWithStyle: with 1 for light signs, anything else for dark ones. On frosted glass the signs are
    /// those that can be read on it, whichever the style.
    explicit MPUSystemMediaControlsViewController(std::int64_t style);

    std::int64_t style() const { return style_; }
    void loadView() override;
    /// The view as what it is; made by now.
    const std::shared_ptr<MPUMediaControlsView>& mediaControlsView() const { return mediaControlsView_; }

    /// nowPlayingController:nowPlayingApplicationDidChange:, with nothing when no application plays.
    void nowPlayingApplicationDidChange(runtime::Object* controller,
                                        std::optional<std::string> bundleIdentifier);
    /// nowPlayingController:playbackStateDidChange:
    void playbackStateDidChange(runtime::Object* controller, bool playing);
    /// nowPlayingController:nowPlayingInfoDidChange:, with a dictionary or nil.
    void nowPlayingInfoDidChange(runtime::Object* controller, foundation::PropertyList info);
    /// nowPlayingController:elapsedTimeDidChange:, seconds.
    void elapsedTimeDidChange(runtime::Object* controller, double elapsed);
    /// Brings the application that plays to the front.
    void _launchCurrentNowPlayingApp();

    bool nowPlayingIsRadioStation() const { return nowPlayingIsRadioStation_->value(); }
    void setNowPlayingIsRadioStation(bool radioStation) { nowPlayingIsRadioStation_->setValue(radioStation); }
    /// The phone's volume, from 0 to 1.
    void volumeDidChange(double volume);

private:
    void hostApplicationDidChange(runtime::Object* controller, std::optional<std::string> bundleIdentifier);
    void hostPlaybackStateDidChange(runtime::Object* controller, bool playing);
    void hostInfoDidChange(runtime::Object* controller, foundation::PropertyList info);
    void hostElapsedTimeDidChange(runtime::Object* controller, double elapsed);
    void hostLaunchCurrentNowPlayingApp();

    void showInfo(const foundation::PropertyList& info);
    void adaptToGlass();

    std::int64_t style_;
    std::optional<std::string> bundleIdentifier_; // of the application that plays
    std::optional<bool> lightSigns_;              // as shown
    foundation::Handle glass_;
    std::shared_ptr<MPUMediaControlsView> mediaControlsView_;
    std::shared_ptr<runtime::Boolean> nowPlayingIsRadioStation_ = std::make_shared<runtime::Boolean>();
};

} // namespace media
