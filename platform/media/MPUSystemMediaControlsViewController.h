// The system's now-playing controls, which others may host in a window of their own.
//
// What a now-playing controller reports arrives as messages, so that an extension can listen in by replacing
// them. `controller` is whoever reports.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/media/MPUMediaControlsView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace media {

class MPUSystemMediaControlsViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// initWithStyle:
    explicit MPUSystemMediaControlsViewController(std::int64_t style);

    std::int64_t style() const { return style_; }
    void loadView() override;

    /// nowPlayingController:nowPlayingApplicationDidChange:, with null when nothing plays.
    void nowPlayingApplicationDidChange(runtime::Object* controller,
                                        std::shared_ptr<runtime::Object> application);
    /// nowPlayingController:playbackStateDidChange:
    void playbackStateDidChange(runtime::Object* controller, bool playing);
    /// nowPlayingController:nowPlayingInfoDidChange:, with a dictionary or nil.
    void nowPlayingInfoDidChange(runtime::Object* controller, foundation::PropertyList info);
    /// nowPlayingController:elapsedTimeDidChange:, seconds.
    void elapsedTimeDidChange(runtime::Object* controller, double elapsed);
    /// Brings the application that plays to the front.
    void _launchCurrentNowPlayingApp();

private:
    void hostApplicationDidChange(runtime::Object* controller, std::shared_ptr<runtime::Object> application);
    void hostPlaybackStateDidChange(runtime::Object* controller, bool playing);
    void hostInfoDidChange(runtime::Object* controller, foundation::PropertyList info);
    void hostElapsedTimeDidChange(runtime::Object* controller, double elapsed);
    void hostLaunchCurrentNowPlayingApp();

    std::int64_t style_;
    std::shared_ptr<MPUMediaControlsView> mediaControlsView_;
};

} // namespace media
