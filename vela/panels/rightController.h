// The right panel's window: the now-playing controls, the strip of songs and the lyric, on frosted glass.
#pragma once

#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/toolkit/views/UILabel.h"
#include "platform/toolkit/views/UIVisualEffectView.h"
#include "platform/toolkit/windows/UIWindow.h"
#include "vela/nowplaying/lyricView.h"
#include "vela/nowplaying/songsCollectionView.h"
#include "vela/panels/GrabStrip.h"
#include "vela/startup/ViewController.h"

namespace vela {

class rightController : public toolkit::UIWindow {
    RUNTIME_CLASS()
public:
    explicit rightController(toolkit::Rect frame = {});

    const std::shared_ptr<toolkit::UIVisualEffectView>& blurView() const { return blurView_; }
    const std::shared_ptr<toolkit::UIVisualEffectView>& vibrancyView() const { return vibrancyView_; }
    const std::shared_ptr<toolkit::UIView>& grabberContainer() const { return strip_.container; }
    const std::shared_ptr<homescreen::SBChevronView>& grabberView() const { return strip_.chevron; }
    const std::shared_ptr<toolkit::UILabel>& applicationLabel() const { return applicationLabel_; }
    const std::shared_ptr<songsCollectionView>& artworkCollectionView() const {
        return artworkCollectionView_;
    }
    const std::shared_ptr<media::MPUSystemMediaControlsViewController>& mediaController() const {
        return mediaController_;
    }
    const std::shared_ptr<lyricView>& lyric() const { return lyric_; }
    /// Not the root view controller, which is mediaController(), but a child of it.
    const std::shared_ptr<ViewController>& controller() const { return controller_; }

    bool _shouldCreateContextAsSecure() const override { return true; }
    void layoutSubviews() override;

private:
    void layOutLandscape(double strip, double labelBottom);
    /// False when there is no room for more than the controls.
    bool layOutPortrait(double strip, double labelBottom);

    std::shared_ptr<toolkit::UIVisualEffectView> blurView_;
    std::shared_ptr<toolkit::UIVisualEffectView> vibrancyView_;
    GrabStrip strip_;
    std::shared_ptr<toolkit::UILabel> applicationLabel_;
    std::shared_ptr<songsCollectionView> artworkCollectionView_;
    std::shared_ptr<media::MPUSystemMediaControlsViewController> mediaController_;
    std::shared_ptr<lyricView> lyric_;
    std::shared_ptr<ViewController> controller_;
};

} // namespace vela
