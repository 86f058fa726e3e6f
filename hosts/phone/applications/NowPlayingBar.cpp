#include "hosts/phone/applications/NowPlayingBar.h"

#include "hosts/phone/artwork/CoverArtwork.h"
#include "hosts/phone/screens/Labels.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/toolkit/text/Utf8.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>

using namespace toolkit;
using media::RemoteCommand;
using media::TransportSign;

namespace phone {

namespace {

constexpr double coverSide = 44; // points
constexpr double margin = 10;
constexpr double buttonWidth = 46;
constexpr double progressHeight = 2;
constexpr double progressInterval = 0.5; // seconds
constexpr std::size_t longestLine = 400; // bytes

std::string text(const foundation::PropertyList& info, const char* key) {
    const std::string* value = info[key].string();
    return value ? singleLine(*value, longestLine) : std::string();
}

} // namespace

runtime::Class& NowPlayingBar::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<NowPlayingBar>("NowPlayingBar", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(NowPlayingBar)

NowPlayingBar::NowPlayingBar(PhoneMediaPort& music, Color tint, std::function<void()> changed)
    : music_(music),
      changed_(std::move(changed)),
      glass_(std::make_shared<UIVisualEffectView>(VisualEffect::blur(BlurEffectStyle::Light))),
      hairline_(std::make_shared<UIView>()),
      progress_(std::make_shared<UIView>()),
      cover_(std::make_shared<UIImageView>()),
      title_(makeLabel("", Font::system(15, FontWeight::Semibold), Color::black())),
      subtitle_(makeLabel("", Font::system(13), Color::white(0.38))),
      playPause_(std::make_shared<media::MPUTransportButton>(TransportSign::Play, 21)),
      next_(std::make_shared<media::MPUTransportButton>(TransportSign::Next, 14)) {
    hairline_->setBackgroundColor(Color::white(0.70));
    progress_->setBackgroundColor(tint);
    cover_->setContentMode(ContentGravity::AspectFill);
    cover_->setClipsToBounds(true);
    cover_->layer()->setCornerRadius(3);
    glass_->setUserInteractionEnabled(false);
    for (const auto& button : {playPause_, next_})
        button->setColor(Color::white(0.05));
    playPause_->addHandler(ControlEvent::TouchUpInside,
                           [this] { music_.player().perform(RemoteCommand::TogglePlayPause); });
    next_->addHandler(ControlEvent::TouchUpInside,
                      [this] { music_.player().perform(RemoteCommand::NextTrack); });
    for (const std::shared_ptr<UIView>& part : std::initializer_list<std::shared_ptr<UIView>>{
             glass_, hairline_, progress_, cover_, title_, subtitle_, playPause_, next_})
        addSubview(part);
    observer_ = music_.player().addObserver([this](playback::NowPlayingSource::Change) { show(); });
    show();
}

bool NowPlayingBar::hasContent() const {
    return !music_.player().nowPlayingInfo().isNil();
}

void NowPlayingBar::setActive(bool active) {
    active_ = active;
    show();
}

void NowPlayingBar::show() {
    const MusicPlayer& player = music_.player();
    const auto info = player.nowPlayingInfo();
    const std::string title = text(info, media::kMRMediaRemoteNowPlayingInfoTitle),
                      station = text(info, media::kMRMediaRemoteNowPlayingInfoRadioStationName),
                      artist = text(info, media::kMRMediaRemoteNowPlayingInfoArtist);
    title_->setText(title.empty() ? station : title);
    const std::string& subtitle = artist.empty() && !title.empty() ? station : artist;
    subtitle_->setText(player.hasFailed() ? "Cannot be played" : subtitle);
    playPause_->setSign(player.isPlaying() ? TransportSign::Pause : TransportSign::Play);
    next_->setHidden(player.isRadioStation());
    setHidden(!hasContent());
    showCover();
    showProgress();
    updateTimer();
    setNeedsLayout();
    if (changed_)
        changed_();
}

void NowPlayingBar::showCover() {
    const auto item = music_.player().nowPlayingItem();
    const std::int64_t identifier = item ? item->persistentID() : 0;
    if (identifier == shownCover_)
        return;
    shownCover_ = identifier;
    cover_->setImage(
        drawCover(item ? CoverKind::Song : CoverKind::Station, coverSide, UIScreen::mainScreen().scale()));
    loading_.reset();
    if (const auto artwork = item ? item->artwork() : nullptr)
        loading_ = artwork->loadImage({coverSide, coverSide}, [this](const auto& picture) {
            if (picture)
                cover_->setImage(picture);
        });
}

void NowPlayingBar::showProgress() {
    const MusicPlayer& player = music_.player();
    const double duration =
        player.nowPlayingInfo()[media::kMRMediaRemoteNowPlayingInfoDuration].doubleValue();
    const double share = duration > 0 ? std::clamp(player.elapsed() / duration, 0.0, 1.0) : 0;
    progress_->setFrame({0, 0, bounds().width * share, progressHeight});
}

void NowPlayingBar::updateTimer() {
    const bool runs = active_ && music_.player().isPlaying() && !music_.player().isRadioStation();
    if (runs == static_cast<bool>(timer_))
        return;
    timer_.reset();
    if (runs)
        timer_ =
            foundation::RunLoop::main().scheduleTimer(progressInterval, true, [this] { showProgress(); });
}

void NowPlayingBar::layoutSubviews() {
    const Size size = bounds().size();
    glass_->setFrame(bounds());
    hairline_->setFrame({0, 0, size.width, 0.5});
    showProgress();
    cover_->setFrame({margin, (size.height - coverSide) / 2 + 1, coverSide, coverSide});
    double right = size.width - 4;
    for (const auto& button : {next_, playPause_}) {
        if (button->isHidden())
            continue;
        right -= buttonWidth;
        button->setFrame({right, 0, buttonWidth, size.height});
    }
    const double left = 2 * margin + coverSide, width = std::max(0.0, right - left - 4);
    const double titleTop = subtitle_->text().empty() ? (size.height - 21) / 2 : 11;
    title_->setFrame({left, titleTop, width, 21});
    subtitle_->setFrame({left, 32, width, 18});
}

} // namespace phone
