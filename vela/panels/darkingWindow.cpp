#include "vela/panels/darkingWindow.h"

#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightWindowGrabber.h"

#include <nlohmann/json.hpp>

#include <numbers>

using namespace toolkit;
using homescreen::SBChevronView;

namespace vela {

namespace {

std::shared_ptr<SBChevronView> makeChevron() {
    auto chevron = std::make_shared<SBChevronView>(Color::white(0.8, 0.9));
    chevron->sizeToFit();
    chevron->setUserInteractionEnabled(true);
    // Both turn the same way.
    chevron->setTransform(AffineTransform::rotation(-std::numbers::pi / 2));
    chevron->setState(0, true);
    return chevron;
}

} // namespace

runtime::Class& darkingWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<darkingWindow>("darkingWindow", &UIWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(darkingWindow)

darkingWindow::darkingWindow(Rect frame)
    : UIWindow(frame),
      controller_(std::make_shared<ViewController>(ViewController::Dimming)),
      leftChevron_(makeChevron()),
      rightChevron_(makeChevron()) {
    setBackgroundColor(Color::white(0, 0.6));
    setAlpha(0);
    setUserInteractionEnabled(true);
    controller_->setWindow(this);
    setRootViewController(controller_);
    layer()->setMasksToBounds(true);
    controller_->view()->addSubview(rightChevron_);
    controller_->view()->addSubview(leftChevron_);
}

template <class Grabber>
void darkingWindow::serve(Grabber& grabber, std::shared_ptr<UIPanGestureRecognizer>& pan,
                          std::shared_ptr<UITapGestureRecognizer>& tap) {
    pan = std::make_shared<UIPanGestureRecognizer>(&grabber, "handlePan:");
    pan->setDelegate(&grabber, &grabber);
    controller_->view()->addGestureRecognizer(pan);
    tap = std::make_shared<UITapGestureRecognizer>(&grabber, "dismissControllerWithTap");
    controller_->view()->addGestureRecognizer(tap);
}

void darkingWindow::setRightGrabber(const std::shared_ptr<rightWindowGrabber>& grabber) {
    setWindowLevel(grabber->windowLevel() + 1);
    rightGrabber_ = grabber;
    serve(*grabber, rightPan_, rightTap_);
}

void darkingWindow::setLeftGrabber(const std::shared_ptr<leftWindowGrabber>& grabber) {
    setWindowLevel(grabber->windowLevel() + 1);
    leftGrabber_ = grabber;
    serve(*grabber, leftPan_, leftTap_);
}

void darkingWindow::setTouchController(std::int32_t side) {
    const bool right = side != 0;
    const auto enable = [](const std::shared_ptr<UIGestureRecognizer>& recognizer, bool enabled) {
        if (recognizer)
            recognizer->setEnabled(enabled);
    };
    enable(rightPan_, right);
    enable(rightTap_, right);
    enable(leftPan_, !right);
    enable(leftTap_, !right);
    touchController_ = side;
}

void darkingWindow::describeProperties(nlohmann::json& properties) const {
    UIWindow::describeProperties(properties);
    properties["touchController"] = touchController_;
}

} // namespace vela
