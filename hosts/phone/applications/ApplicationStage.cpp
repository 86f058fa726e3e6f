#include "hosts/phone/applications/ApplicationStage.h"

#include "platform/toolkit/windows/UIScreen.h"

using namespace toolkit;

namespace phone {

namespace {

/// The window is seen whole but for the part of the zoom where it is hardly larger than its icon.
constexpr double fadeDuration = 0.14; // seconds

/// Takes a window that fills the screen down to `target`.
AffineTransform shrunkTo(Rect target) {
    const Rect screen = UIScreen::mainScreen().bounds();
    const double scale = target.width / screen.width;
    const Point from = screen.center(), to = target.center();
    return AffineTransform::scale(scale, scale)
        .then(AffineTransform::translation(to.x - from.x, to.y - from.y));
}

void hide(const std::shared_ptr<Application>& application) {
    application->window()->setHidden(true);
    application->window()->setTransform({});
    application->window()->setAlpha(1);
}

} // namespace

ApplicationStage::ApplicationStage(std::vector<std::shared_ptr<Application>> applications)
    : applications_(std::move(applications)) {}

std::shared_ptr<Application> ApplicationStage::find(const std::string& bundleIdentifier) const {
    for (const auto& application : applications_)
        if (application->bundleIdentifier() == bundleIdentifier)
            return application;
    return nullptr;
}

void ApplicationStage::open(std::shared_ptr<Application> application, Rect origin,
                            StageTransition transition) {
    if (application == front_)
        return;
    const auto previous = std::exchange(front_, application);
    std::erase(recent_, application);
    recent_.insert(recent_.begin(), application);

    SystemWindow& window = application->ensureWindow();
    const bool wasShown = !window.isHidden();
    window.setHidden(true); // showing it anew puts it before the others
    window.setHidden(false);
    if (transition == StageTransition::Zoomed && !wasShown) {
        window.setTransform({});
        window.fitScreen();
        window.layoutIfNeeded();
        window.setTransform(shrunkTo(origin));
        window.setAlpha(0);
        UIView::animate(fadeDuration, 0, AnimationCurve::EaseOut, [&] { window.setAlpha(1); });
        UIView::animate(
            zoomDuration, 0, AnimationCurve::EaseOut, [&] { window.setTransform({}); },
            [stage = weak_from_this(), weakCovered = std::weak_ptr(previous)](bool) {
                const auto self = stage.lock();
                const auto covered = weakCovered.lock();
                if (self && covered && covered != self->front_)
                    hide(covered);
            });
    } else {
        window.setTransform({});
        window.setAlpha(1);
        window.fitScreen();
        if (previous)
            hide(previous);
    }
}

void ApplicationStage::leave(Rect target, StageTransition transition) {
    if (!front_)
        return;
    const auto left = std::exchange(front_, nullptr);
    if (transition == StageTransition::Immediate)
        return hide(left);
    SystemWindow& window = *left->window();
    UIView::animate(fadeDuration, zoomDuration - fadeDuration, AnimationCurve::EaseIn,
                    [&] { window.setAlpha(0); });
    UIView::animate(
        zoomDuration, 0, AnimationCurve::EaseInOut, [&] { window.setTransform(shrunkTo(target)); },
        [stage = weak_from_this(), weakLeft = std::weak_ptr(left)](bool finished) {
            const auto self = stage.lock();
            const auto gone = weakLeft.lock();
            if (finished && self && gone && gone != self->front_)
                hide(gone);
        });
}

void ApplicationStage::fitScreen() {
    if (front_)
        front_->window()->fitScreen();
}

} // namespace phone
