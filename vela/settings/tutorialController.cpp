#include "vela/settings/tutorialController.h"

#include "platform/preferences/AVPlayerViewController.h"
#include "platform/preferences/Presentation.h"
#include "vela/stores/ProductConfiguration.h"

using namespace toolkit;
using preferences::AVPlayer;
using preferences::AVPlayerViewController;

namespace vela {

namespace {

constexpr double welcomeFontSize = 30;

/// Shows the film, which begins once it is on screen.
void presentFilm() {
    auto player = std::make_shared<AVPlayer>(ProductConfiguration::shared().tutorialVideo());
    auto page = std::make_shared<AVPlayerViewController>();
    page->setPlayer(player);
    preferences::presentFromKeyWindow(page, true, [player] { player->play(); });
}

} // namespace

runtime::Class& tutorialController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<tutorialController>("tutorialController", &UIViewController::staticClass())
            .method("showTutorial", &tutorialController::showTutorial)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(tutorialController)

tutorialController::tutorialController() {
    view()->setBackgroundColor(Color::white(1));
    makeWelcome();
    makeOk();
}

void tutorialController::makeWelcome() {
    welcome_->setText("Welcome to \nVela");
    welcome_->setTextColor(Color::black());
    welcome_->setTextAlignment(TextAlignment::Center);
    welcome_->setFont(Font::system(welcomeFontSize));
    welcome_->setNumberOfLines(0);
    view()->addSubview(welcome_);
}

void tutorialController::makeOk() {
    ok_->setTitle("Tutorial");
    ok_->titleLabel()->setTextColor(Color::rgba(0.05, 0.4, 1));
    ok_->setBackgroundColor(Color::clear());
    ok_->addTarget(this, "showTutorial", ControlEvent::TouchUpInside);
    view()->addSubview(ok_);
}

void tutorialController::viewWillLayoutSubviews() {
    UIViewController::viewWillLayoutSubviews();
    const Size area = view()->bounds().size();
    welcome_->setFrame({{}, area});
    ok_->sizeToFit();
    const Size fitted = ok_->bounds().size();
    ok_->setFrame({(area.width - fitted.width) / 2, area.height * 3 / 4, fitted.width, fitted.height});
}

void tutorialController::showTutorial() {
    preferences::dismiss(*this, true, presentFilm);
}

} // namespace vela
