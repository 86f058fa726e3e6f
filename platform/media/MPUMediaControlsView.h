// The view of now-playing controls: the time line, what plays, the buttons of a player, and the volume.
//
// It shows what it is told and says what is touched; it knows nothing of players. Laid out for a height of
// 160 points and any width.
#pragma once

#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/media/MPUMediaControlsVolumeView.h"
#include "platform/media/MPUTransportButton.h"
#include "platform/media/MediaPort.h"

namespace media {

class MPUMediaControlsView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    struct Actions {
        std::function<void(RemoteCommand)> command;
        std::function<void(double seconds)> seek;
        /// The title was tapped.
        std::function<void()> launch;
    };

    explicit MPUMediaControlsView(toolkit::Rect frame = {});

    void setActions(Actions actions);
    void setPlaying(bool playing);
    /// Any text; what cannot stand in a line is left out.
    void setTitle(const std::string& title);
    void setSubtitle(const std::string& subtitle);
    /// Of text and signs.
    void setColor(toolkit::Color color);

    const std::shared_ptr<MPUChronologicalProgressView>& timeView() const { return timeView_; }
    const std::shared_ptr<MPUMediaControlsVolumeView>& volumeView() const { return volumeView_; }
    const std::shared_ptr<MPUTransportButton>& previousButton() const { return previous_; }
    const std::shared_ptr<MPUTransportButton>& playPauseButton() const { return playPause_; }
    const std::shared_ptr<MPUTransportButton>& nextButton() const { return next_; }
    const std::shared_ptr<toolkit::UILabel>& titleLabel() const { return title_; }
    const std::shared_ptr<toolkit::UILabel>& subtitleLabel() const { return subtitle_; }

    void layoutSubviews() override;

private:
    class TitleArea;
    void addCommand(MPUTransportButton& button, RemoteCommand command);

    Actions actions_;
    std::shared_ptr<MPUChronologicalProgressView> timeView_;
    std::shared_ptr<toolkit::UIControl> titleArea_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UILabel> subtitle_;
    std::shared_ptr<MPUTransportButton> previous_;
    std::shared_ptr<MPUTransportButton> playPause_;
    std::shared_ptr<MPUTransportButton> next_;
    std::shared_ptr<MPUMediaControlsVolumeView> volumeView_;
};

} // namespace media
