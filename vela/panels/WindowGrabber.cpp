#include "vela/panels/WindowGrabber.h"

#include "platform/homescreen/SpringBoard.h"
#include "platform/toolkit/windows/UIApplication.h"
#include "platform/toolkit/windows/UIDevice.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/panels/BlurChoice.h"
#include "vela/panels/GrabberColors.h"
#include "vela/panels/darkingWindow.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace vela {

runtime::Class& WindowGrabber::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<WindowGrabber>("WindowGrabber", &UIWindow::staticClass())
            .action("handlePan:", &WindowGrabber::handlePan)
            .method("dismissControllerWithTap", &WindowGrabber::dismissControllerWithTap)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(WindowGrabber)

WindowGrabber::WindowGrabber(Rect frame, ViewController::Type type)
    : UIWindow(frame), contr_(std::make_shared<ViewController>(type)) {
    setBackgroundColor(grabberTint());
    setUserInteractionEnabled(true);
    contr_->setWindow(this);
    setRootViewController(contr_);
    layer()->setMasksToBounds(true);
    // First of the view's recognisers: the other grabber looks it up there.
    auto pan = std::make_shared<UIPanGestureRecognizer>(this, "handlePan:");
    pan->setDelegate(this, this);
    contr_->view()->addGestureRecognizer(pan);
}

void WindowGrabber::serve(UIWindow& panelWindow, UIView& grabberContainer) {
    setWindowLevel(panelWindow.windowLevel() - 1);
    auto pan = std::make_shared<UIPanGestureRecognizer>(this, "handlePan:");
    pan->setDelegate(this, this);
    grabberContainer.addGestureRecognizer(pan);
}

UIView* WindowGrabber::locationView() const {
    const auto* application = UIApplication::sharedApplication();
    return application ? application->keyWindow() : nullptr;
}

bool WindowGrabber::wantY() const {
    const DeviceOrientation device = UIDevice::currentDevice().orientation();
    if (device == DeviceOrientation::FaceUp || device == DeviceOrientation::FaceDown)
        return false;
    static const runtime::Message<std::int64_t()> statusBarOrientation{"statusBarOrientation"};
    return statusBarOrientation(moduleState().spring) != static_cast<std::int64_t>(device);
}

bool WindowGrabber::isFuckingInverted() const {
    const auto* application = UIApplication::sharedApplication();
    const UIWindow* keyWindow = application ? application->keyWindow() : nullptr;
    if (!keyWindow || !keyWindow->rootViewController() ||
        keyWindow->rootViewController()->supportedInterfaceOrientations() != orientationMaskPortrait)
        return false;
    return !messages::getOffID(moduleState().spring).empty();
}

WindowGrabber::Travel WindowGrabber::travel() const {
    const Rect screen = UIScreen::mainScreen().bounds();
    return {wantY() ? screen.height : screen.width, panel().frame().width};
}

double WindowGrabber::locationAlongPan(const UIPanGestureRecognizer& pan) const {
    const Point location = pan.locationInView(locationView());
    return panAlongY() ? location.y : location.x;
}

void WindowGrabber::handlePan(UIGestureRecognizer& recognizer) {
    const auto* pan = dynamic_cast<UIPanGestureRecognizer*>(&recognizer);
    if (!pan)
        return;
    // Two panels are never dragged at once.
    const WindowGrabber* other = otherGrabber();
    if (other && other->contr()->view()->gestureRecognizers().front()->state() == GestureState::Changed) {
        dismissControllerWithTap();
        return;
    }
    if (pan->state() == GestureState::Began)
        begin(*pan);
    const double delta = measure(*pan);
    if (pan->state() == GestureState::Began || pan->state() == GestureState::Changed)
        follow(delta);
    else
        release(delta);
}

void WindowGrabber::begin(const UIPanGestureRecognizer& pan) {
    panBegan();
    chooseDimmingChevron(VelaSettingsManager::sharedInstance().isChevronsHidden());
    last_ = static_cast<float>(panel().frame().x);
    start_ = static_cast<float>(locationAlongPan(pan));
    panelChevron().setState(0, true);
    darking_->setTouchController(side());
    panel().setHidden(false);
    if (!showed_)
        applyBlur(blur::chosenStyle());
}

double WindowGrabber::measure(const UIPanGestureRecognizer& pan) {
    const Point velocity = pan.velocityInView(locationView());
    end_ = static_cast<float>(locationAlongPan(pan));
    const double moved = static_cast<double>(end_) - static_cast<double>(start_);
    if (!panAlongY()) {
        velocity_ = static_cast<float>(velocity.x);
        return -moved;
    }
    const bool turnedRight = UIDevice::currentDevice().orientation() == DeviceOrientation::LandscapeRight;
    velocity_ = static_cast<float>(turnedRight ? -velocity.y : velocity.y);
    return turnedRight ? moved : -moved;
}

void WindowGrabber::follow(double delta) {
    const Travel here = travel();
    const double x = heldAtOpen(static_cast<double>(last_) - delta, here);
    moveTo(x, dimmingAlpha(x, here), Motion::Following);
}

void WindowGrabber::release(double delta) {
    const Travel here = travel();
    panelChevron().setState(1, true);
    const float openingVelocity = static_cast<float>(openingDirection()) * velocity_;
    if (openingVelocity >= flingSpeed)
        showControllerWithDuration(flingPoints / openingVelocity, static_cast<float>(openPosition(here)));
    else if (openingVelocity <= -flingSpeed)
        dismissControllerWithDuration(-flingPoints / openingVelocity,
                                      static_cast<float>(closedPosition(here)));
    else if (opensFrom(static_cast<double>(last_) - delta, here))
        showControllerWithDuration(settleDuration, static_cast<float>(openPosition(here)));
    else
        dismissControllerWithDuration(settleDuration, static_cast<float>(closedPosition(here)));
}

void WindowGrabber::moveTo(double x, double alpha, Motion motion) {
    const Travel here = travel();
    panel().setFrame({x, 0, here.width, panel().frame().height});
    darking_->setAlpha(alpha);
    darking_->setFrame(dimmingFrame(x, darking_->frame().height, here, motion));
    placeDimmingChevron(x, motion);
}

void WindowGrabber::showControllerWithDuration(float duration, float x) {
    announce(true);
    UIView::animate(
        static_cast<double>(duration), 0, AnimationCurve::EaseIn, [&] { moveTo(x, 1, Motion::Showing); },
        [self = runtime::WeakPtr<WindowGrabber>(this)](bool finished) {
            if (finished && self)
                self->showed_ = true;
        });
}

void WindowGrabber::dismissControllerWithDuration(float duration, float x) {
    dismiss(static_cast<double>(duration), x);
}

void WindowGrabber::dismissControllerWithTap() {
    dismiss(0.3, closedPosition(travel()));
}

void WindowGrabber::dismiss(double duration, double x) {
    announce(false);
    UIView::animate(
        duration, 0, AnimationCurve::EaseIn, [&] { moveTo(x, 0, Motion::Dismissing); },
        [self = runtime::WeakPtr<WindowGrabber>(this)](bool finished) {
            if (!finished || !self)
                return;
            self->panel().setHidden(true);
            self->showed_ = false;
        });
}

void WindowGrabber::describeProperties(nlohmann::json& properties) const {
    UIWindow::describeProperties(properties);
    properties["showed"] = showed_;
    properties["start"] = start_;
    properties["end"] = end_;
    properties["velocity"] = velocity_;
    properties["last"] = last_;
    properties["type"] = contr_->type();
}

} // namespace vela
