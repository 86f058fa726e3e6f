// The bar at the foot of the music applications: what the phone's player plays, on frosted glass.
#pragma once

#include "hosts/phone/music/PhoneMediaPort.h"
#include "platform/media/MPUTransportButton.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"
#include "platform/toolkit/views/UIVisualEffectView.h"

namespace phone {

class NowPlayingBar : public toolkit::UIControl {
    RUNTIME_CLASS()
public:
    /// `music` outlives the bar. `changed` is called after what plays has changed.
    NowPlayingBar(PhoneMediaPort& music, toolkit::Color tint, std::function<void()> changed);

    /// Whether there is anything to be shown.
    bool hasContent() const;
    /// The line of how far the song has come advances only while it is looked at.
    void setActive(bool active);

    void layoutSubviews() override;

    static constexpr double height = 62; // points

private:
    void show();
    void showProgress();
    void updateTimer();
    void showCover();

    PhoneMediaPort& music_;
    std::function<void()> changed_;
    bool active_ = false;
    std::shared_ptr<toolkit::UIVisualEffectView> glass_;
    std::shared_ptr<toolkit::UIView> hairline_;
    std::shared_ptr<toolkit::UIView> progress_;
    std::shared_ptr<toolkit::UIImageView> cover_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UILabel> subtitle_;
    std::shared_ptr<media::MPUTransportButton> playPause_;
    std::shared_ptr<media::MPUTransportButton> next_;
    std::int64_t shownCover_ = -1; // the song's identifier; 0 for a station's
    foundation::Handle loading_;
    foundation::Handle observer_;
    foundation::Handle timer_;
};

} // namespace phone
