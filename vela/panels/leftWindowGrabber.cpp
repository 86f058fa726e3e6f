#include "vela/panels/leftWindowGrabber.h"

#include "platform/foundation/NotificationCenter.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/rightWindowGrabber.h"

#include <algorithm>

using namespace toolkit;

namespace vela {

namespace {

/// How far the dimmed area reaches under the panel while it is pulled or shown, so that no seam is seen.
constexpr double dimmingOverlap = 0.5; // points

} // namespace

runtime::Class& leftWindowGrabber::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<leftWindowGrabber>("leftWindowGrabber", &WindowGrabber::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(leftWindowGrabber)

leftWindowGrabber::leftWindowGrabber(Rect frame) : WindowGrabber(frame, ViewController::LeftGrabber) {}

void leftWindowGrabber::setController(std::shared_ptr<leftController> panelWindow) {
    serve(*panelWindow, *panelWindow->grabberContainer());
    controller_ = std::move(panelWindow);
}

WindowGrabber* leftWindowGrabber::otherGrabber() const {
    return darking()->rightGrabber().get();
}

double leftWindowGrabber::heldAtOpen(double x, Travel travel) const {
    return std::min(x, openPosition(travel));
}

bool leftWindowGrabber::opensFrom(double x, Travel travel) const {
    return x + travel.width * 0.5 >= 0;
}

double leftWindowGrabber::dimmingAlpha(double x, Travel travel) const {
    return (x + travel.width) / travel.width;
}

Rect leftWindowGrabber::dimmingFrame(double x, double height, Travel travel, Motion motion) const {
    const double edge = x + travel.width;
    const double overlap = motion == Motion::Dismissing ? 0 : dimmingOverlap;
    return {edge - overlap, 0, travel.span - edge + overlap, height};
}

void leftWindowGrabber::placeDimmingChevron(double, Motion motion) const {
    const auto& chevron = darking()->leftChevron();
    const Size size = chevron->frame().size();
    // The show animation centres by the other chevron, whose height is the same once both have been fitted.
    const double height = motion == Motion::Showing ? darking()->rightChevron()->frame().height : size.height;
    chevron->setFrame({0, (darking()->frame().height - height) * 0.5, size.width, size.height});
}

void leftWindowGrabber::chooseDimmingChevron(bool alternative) const {
    darking()->leftChevron()->setHidden(!alternative);
    darking()->rightChevron()->setHidden(true);
}

void leftWindowGrabber::applyBlur(BlurEffectStyle style) const {
    controller_->blurView()->setEffect(VisualEffect::blur(style));
}

void leftWindowGrabber::panBegan() {
    controller_->board()->loadApps();
}

void leftWindowGrabber::announce(bool invoked) {
    foundation::NotificationCenter::defaultCenter().post(
        notificationName, foundation::PropertyList::Dictionary{{"name", invoked ? "invoked" : "dismissed"}});
}

} // namespace vela
