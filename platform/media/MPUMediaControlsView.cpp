#include "platform/media/MPUMediaControlsView.h"

#include "platform/toolkit/text/Utf8.h"

#include <algorithm>

using namespace toolkit;

namespace media {

namespace {

constexpr double margin = 16; // points, at either side
constexpr double timeTop = 4, timeHeight = 24;
constexpr double titleTop = 32, titleHeight = 24, subtitleHeight = 18;
constexpr double buttonsMiddle = 101, buttonWidth = 64, buttonHeight = 48;
constexpr double widestButtonPitch = 96;
constexpr double playHeight = 27, skipHeight = 17;
constexpr double volumeTop = 128, volumeHeight = 30;
constexpr double subtitleAlpha = 0.68;
constexpr std::size_t longestLine = 400; // bytes; far more than any screen is wide

} // namespace

/// Where what plays is named; it answers a tap.
class MPUMediaControlsView::TitleArea : public UIControl {
protected:
    void highlightChanged() override { setAlpha(isHighlighted() ? 0.5 : 1); }
};

runtime::Class& MPUMediaControlsView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUMediaControlsView>("MPUMediaControlsView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUMediaControlsView)

MPUMediaControlsView::MPUMediaControlsView(Rect frame)
    : UIView(frame),
      timeView_(std::make_shared<MPUChronologicalProgressView>(0)),
      titleArea_(std::make_shared<TitleArea>()),
      title_(std::make_shared<UILabel>()),
      subtitle_(std::make_shared<UILabel>()),
      previous_(std::make_shared<MPUTransportButton>(TransportSign::Previous, skipHeight)),
      playPause_(std::make_shared<MPUTransportButton>(TransportSign::Play, playHeight)),
      next_(std::make_shared<MPUTransportButton>(TransportSign::Next, skipHeight)),
      volumeView_(std::make_shared<MPUMediaControlsVolumeView>()) {
    title_->setFont(Font::system(18, FontWeight::Semibold));
    subtitle_->setFont(Font::system(14));
    for (const auto& label : {title_, subtitle_}) {
        label->setTextAlignment(TextAlignment::Center);
        titleArea_->addSubview(label);
    }
    titleArea_->addHandler(ControlEvent::TouchUpInside, [this] {
        if (const auto launch = actions_.launch)
            launch();
    });
    addCommand(*previous_, RemoteCommand::PreviousTrack);
    addCommand(*playPause_, RemoteCommand::TogglePlayPause);
    addCommand(*next_, RemoteCommand::NextTrack);
    for (const std::shared_ptr<UIView>& part : std::initializer_list<std::shared_ptr<UIView>>{
             timeView_, titleArea_, previous_, playPause_, next_, volumeView_})
        addSubview(part);
    setColor(Color::white(1));
}

void MPUMediaControlsView::addCommand(MPUTransportButton& button, RemoteCommand command) {
    button.addHandler(ControlEvent::TouchUpInside, [this, command] {
        if (const auto perform = actions_.command)
            perform(command);
    });
}

void MPUMediaControlsView::setActions(Actions actions) {
    actions_ = std::move(actions);
    timeView_->setSeekHandler(actions_.seek);
}

void MPUMediaControlsView::setPlaying(bool playing) {
    playPause_->setSign(playing ? TransportSign::Pause : TransportSign::Play);
}

void MPUMediaControlsView::setTitle(const std::string& title) {
    title_->setText(singleLine(title, longestLine));
}

void MPUMediaControlsView::setSubtitle(const std::string& subtitle) {
    subtitle_->setText(singleLine(subtitle, longestLine));
}

void MPUMediaControlsView::setColor(Color color) {
    title_->setTextColor(color);
    subtitle_->setTextColor(color.withAlpha(color.alpha * subtitleAlpha));
    timeView_->setColor(color);
    volumeView_->setColor(color);
    for (const auto& button : {previous_, playPause_, next_})
        button->setColor(color);
}

void MPUMediaControlsView::layoutSubviews() {
    const double width = bounds().width, inner = std::max(0.0, width - 2 * margin);
    timeView_->setFrame({margin / 2, timeTop, std::max(0.0, width - margin), timeHeight});
    titleArea_->setFrame({margin, titleTop, inner, titleHeight + subtitleHeight});
    title_->setFrame({0, 0, inner, titleHeight});
    subtitle_->setFrame({0, titleHeight, inner, subtitleHeight});
    const double pitch = std::min(widestButtonPitch, width * 0.3);
    double x = width / 2 - pitch;
    for (const auto& button : {previous_, playPause_, next_}) {
        button->setFrame({x - buttonWidth / 2, buttonsMiddle - buttonHeight / 2, buttonWidth, buttonHeight});
        x += pitch;
    }
    volumeView_->setFrame({margin, volumeTop, inner, volumeHeight});
}

} // namespace media
