// What plays now, in the phone's player or in another application, and who is told of it.
//
// The host reports every change; the controller keeps the last one of each kind and passes them on, at once
// and in the order in which they come, to all hosted now-playing controls. There is no comparing: what is
// reported twice is passed on twice. Main thread only.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/runtime/Class.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace media {

class MPUSystemMediaControlsViewController;

class MPUNowPlayingController : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// The process's one; never torn down.
    static MPUNowPlayingController& sharedController();

    // What was reported last.
    bool isPlaying() const { return playing_; }
    bool isRadioStation() const { return radioStation_; }
    /// Nothing when no application plays.
    const std::optional<std::string>& nowPlayingAppBundleIdentifier() const { return bundleIdentifier_; }
    /// A dictionary with the keys of NowPlayingInfo.h, or nil.
    const foundation::PropertyList& currentNowPlayingInfo() const { return info_; }
    /// Seconds.
    double currentElapsed() const { return elapsed_; }
    /// Seconds; 0 when it is not known or there is no end.
    double currentDuration() const;
    /// Of the phone, from 0 to 1.
    double currentVolume() const { return volume_; }

    // What a host reports. A change of several things is reported in this order.

    /// Whether what plays is a radio station's stream: told before the application and the information of
    /// that stream, or of the song after it.
    void setRadioStation(bool radioStation);
    void applicationDidChange(std::optional<std::string> bundleIdentifier);
    /// Also sets what isPlaying() answers during the other reports.
    void playbackStateDidChange(bool playing);
    void infoDidChange(foundation::PropertyList info);
    /// About once a second while something plays, and after every leap.
    void elapsedTimeDidChange(double seconds);
    void volumeDidChange(double volume);

    /// Tells `controls` of every further report, and, in a later turn, how things stand by then. They are
    /// not owned.
    void addControls(const std::shared_ptr<MPUSystemMediaControlsViewController>& controls);
    /// The controls that are told, the first ones first.
    std::vector<std::shared_ptr<MPUSystemMediaControlsViewController>> controls() const;

private:
    void tellHowThingsStand(MPUSystemMediaControlsViewController& controls);

    std::vector<std::weak_ptr<MPUSystemMediaControlsViewController>> controls_;
    std::optional<std::string> bundleIdentifier_;
    foundation::PropertyList info_;
    double elapsed_ = 0;
    double volume_ = 0.5;
    bool playing_ = false;
    bool radioStation_ = false;
};

} // namespace media
