#include "vela/panels/rightWindowGrabber.h"

#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftWindowGrabber.h"

#include <algorithm>

using namespace toolkit;

namespace vela {

runtime::Class& rightWindowGrabber::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<rightWindowGrabber>("rightWindowGrabber", &WindowGrabber::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(rightWindowGrabber)

rightWindowGrabber::rightWindowGrabber(Rect frame) : WindowGrabber(frame, ViewController::RightGrabber) {}

void rightWindowGrabber::setController(std::shared_ptr<rightController> panelWindow) {
    serve(*panelWindow, *panelWindow->grabberContainer());
    controller_ = std::move(panelWindow);
}

WindowGrabber* rightWindowGrabber::otherGrabber() const {
    return darking()->leftGrabber().get();
}

double rightWindowGrabber::heldAtOpen(double x, Travel travel) const {
    return std::max(x, openPosition(travel));
}

bool rightWindowGrabber::opensFrom(double x, Travel travel) const {
    return x <= openPosition(travel) + travel.width * 0.5;
}

double rightWindowGrabber::dimmingAlpha(double x, Travel travel) const {
    return 1 - (x - openPosition(travel)) / travel.width;
}

Rect rightWindowGrabber::dimmingFrame(double x, double height, Travel, Motion) const {
    return {0, 0, x, height};
}

void rightWindowGrabber::placeDimmingChevron(double x, Motion) const {
    const auto& chevron = darking()->rightChevron();
    const Size size = chevron->frame().size();
    chevron->setFrame(
        {x - size.width, (darking()->frame().height - size.height) * 0.5, size.width, size.height});
}

void rightWindowGrabber::chooseDimmingChevron(bool alternative) const {
    darking()->rightChevron()->setHidden(!alternative);
    darking()->leftChevron()->setHidden(true);
}

void rightWindowGrabber::applyBlur(BlurEffectStyle style) const {
    const VisualEffect effect = VisualEffect::blur(style);
    controller_->blurView()->setEffect(effect);
    controller_->vibrancyView()->setEffect(VisualEffect::vibrancyFor(effect));
}

} // namespace vela
