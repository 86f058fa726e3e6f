#include "vela/panels/rightController.h"

#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/windows/UIApplication.h"
#include "vela/nowplaying/songCollectionViewCell.h"
#include "vela/panels/darkingWindow.h"
#include "vela/startup/ScreenGeometry.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

#include <numbers>

using namespace toolkit;

namespace vela {

namespace {

constexpr double labelTop = 20; // points
constexpr double gap = 10;      // between the label and the songs
constexpr double controlsHeight = 160;
constexpr std::int64_t controlsStyle = 1;

std::shared_ptr<UICollectionViewFlowLayout> sidewaysLayout() {
    auto layout = std::make_shared<UICollectionViewFlowLayout>();
    layout->setScrollDirection(ScrollDirection::Horizontal);
    return layout;
}

std::int64_t frontMostOrientation() {
    static const runtime::Message<std::int64_t()> message{"_frontMostAppOrientation"};
    auto* application = UIApplication::sharedApplication();
    return runtime::respondsTo(application, message.selector()) ? message(application) : 0;
}

} // namespace

runtime::Class& rightController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<rightController>("rightController", &UIWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(rightController)

rightController::rightController(Rect frame)
    : UIWindow(frame),
      blurView_(std::make_shared<UIVisualEffectView>(VisualEffect::blur(BlurEffectStyle::Dark))),
      vibrancyView_(std::make_shared<UIVisualEffectView>(VisualEffect::vibrancyFor(*blurView_->effect()))),
      strip_(GrabStrip::make(-std::numbers::pi / 2)),
      applicationLabel_(std::make_shared<UILabel>()),
      artworkCollectionView_(std::make_shared<songsCollectionView>(Rect(), sidewaysLayout())),
      mediaController_(std::make_shared<media::MPUSystemMediaControlsViewController>(controlsStyle)),
      lyric_(std::make_shared<lyricView>()),
      controller_(std::make_shared<ViewController>(ViewController::RightPanel)) {
    setAutoresizesSubviews(true);
    setUserInteractionEnabled(true);
    layer()->setMasksToBounds(true);
    addSubview(blurView_);
    blurView_->contentView()->addSubview(vibrancyView_);
    addSubview(strip_.container);

    applicationLabel_->setFont(Font::system(38));
    applicationLabel_->setTextColor(Color::white(1));
    applicationLabel_->setUserInteractionEnabled(true);
    applicationLabel_->setTextAlignment(TextAlignment::Center);
    applicationLabel_->setText(" ");
    vibrancyView_->contentView()->addSubview(applicationLabel_);

    mediaController_->view()->setUserInteractionEnabled(true);
    setRootViewController(mediaController_);
    applicationLabel_->addGestureRecognizer(
        std::make_shared<UITapGestureRecognizer>(mediaController_.get(), "_launchCurrentNowPlayingApp"));

    addSubview(artworkCollectionView_);
    artworkCollectionView_->registerClass<songCollectionViewCell>(songsCollectionView::cellIdentifier);
    vibrancyView_->contentView()->addSubview(lyric_);
    controller_->setWindow(this);
    mediaController_->addChildViewController(controller_);
}

void rightController::layoutSubviews() {
    blurView_->setFrame(bounds());
    vibrancyView_->setFrame(bounds());
    applicationLabel_->sizeToFit();

    const bool alternative = VelaSettingsManager::sharedInstance().isChevronsHidden();
    const auto window = messages::darkingWindow(UIApplication::sharedApplication());
    const auto darking = std::dynamic_pointer_cast<darkingWindow>(window);
    strip_.layOut(alternative, 0, frame().height, darking ? darking->rightChevron().get() : nullptr);
    const double strip = strip_.container->frame().width;

    const double labelHeight = applicationLabel_->frame().height;
    applicationLabel_->setFrame({strip, labelTop, frame().width - strip, labelHeight});
    const double labelBottom = labelTop + labelHeight;
    if (geometry::isLandscape(frontMostOrientation()))
        layOutLandscape(strip, labelBottom);
    else if (!layOutPortrait(strip, labelBottom))
        return;
    artworkCollectionView_->reloadSections({0});
}

void rightController::layOutLandscape(double strip, double labelBottom) {
    const double width = frame().width - strip, height = frame().height;
    const double songsTop = labelBottom + gap;
    lyric_->setHidden(true);
    mediaController_->view()->setFrame({strip, height - controlsHeight, width, controlsHeight});
    artworkCollectionView_->setFrame({strip, songsTop, width, (height - controlsHeight) - songsTop});
}

bool rightController::layOutPortrait(double strip, double labelBottom) {
    const double width = frame().width - strip, height = frame().height;
    const double controlsTop = (height - controlsHeight) * 0.5, controlsBottom = controlsTop + controlsHeight;
    const double songsTop = labelBottom + gap, songsHeight = controlsTop - songsTop;
    lyric_->setHidden(false);
    mediaController_->view()->setFrame({strip, controlsTop, width, controlsHeight});
    if (width <= 0 || songsHeight <= 0)
        return false;
    artworkCollectionView_->setFrame({strip, songsTop, width, songsHeight});
    lyric_->setFrame({strip, controlsBottom, width, height - controlsBottom});
    return true;
}

} // namespace vela
