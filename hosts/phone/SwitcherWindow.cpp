#include "hosts/phone/SwitcherWindow.h"

#include "hosts/phone/screens/ScreenController.h"
#include "platform/toolkit/layers/Compositor.h"
#include "platform/toolkit/windows/UIScreen.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double fadeDuration = 0.25; // seconds
constexpr double iconSide = 29;       // points

/// What an application's window shows, whether or not anything lies before it.
std::shared_ptr<const Image> pictureOf(SystemWindow& window) {
    window.layoutIfNeeded();
    Compositor compositor;
    compositor.compose({window.rootViewController()->view()->layer()}, window.bounds().size(),
                       UIScreen::mainScreen().scale());
    return compositor.image();
}

} // namespace

runtime::Class& SwitcherWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SwitcherWindow>("SwitcherWindow", &SystemWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SwitcherWindow)

SwitcherWindow::SwitcherWindow(std::shared_ptr<const Image> background,
                               std::function<void(const std::string&)> chosen)
    : SystemWindow(levels::switcher, WindowSecurity::BehindLockScreen) {
    switcher_ = std::make_shared<Switcher>(std::move(background), [chosen](const SwitcherCard* card) {
        chosen(card ? card->bundleIdentifier() : "");
    });
    setRootViewController(std::make_shared<ScreenController>(switcher_, orientationMaskAll));
}

void SwitcherWindow::open(const ApplicationStage& stage) {
    open_ = true;
    std::vector<std::shared_ptr<SwitcherCard>> cards;
    for (const auto& application : stage.recent())
        cards.push_back(
            std::make_shared<SwitcherCard>(application->bundleIdentifier(), application->displayName(),
                                           applications::drawIcon(application->description().entry.icon,
                                                                  iconSide, UIScreen::mainScreen().scale()),
                                           pictureOf(*application->window())));
    switcher_->setCards(std::move(cards));
    fitScreen();
    setHidden(false);
    layoutIfNeeded();
    setAlpha(0);
    UIView::animate(fadeDuration, 0, AnimationCurve::EaseOut, [this] { setAlpha(1); });
}

void SwitcherWindow::close() {
    if (!open_)
        return;
    open_ = false;
    const runtime::WeakPtr<SwitcherWindow> self(this);
    UIView::animate(
        fadeDuration, 0, AnimationCurve::EaseOut, [this] { setAlpha(0); },
        [self](bool finished) {
            if (finished && self)
                self->setHidden(true);
        });
}

} // namespace phone
