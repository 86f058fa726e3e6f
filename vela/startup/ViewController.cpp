#include "vela/startup/ViewController.h"

#include "platform/toolkit/windows/UIApplication.h"
#include "platform/toolkit/windows/UIDevice.h"
#include "vela/startup/ScreenGeometry.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

using toolkit::Rect;

namespace vela {

namespace {

float leftScale(bool landscape) {
    auto* application = toolkit::UIApplication::sharedApplication();
    return landscape ? messages::leftScaleLandscape(application) : messages::leftScalePortrait(application);
}

float rightScale(bool landscape) {
    auto* application = toolkit::UIApplication::sharedApplication();
    return landscape ? messages::rightScaleLandscape(application) : messages::rightScalePortrait(application);
}

} // namespace

runtime::Class& ViewController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<ViewController>("ViewController", &UIViewController::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ViewController)

Rect ViewController::getScreenFrameByOrientation(std::int64_t orientation) const {
    return geometry::screenFrame(orientation);
}

void ViewController::refresh() {
    toolkit::UIWindow* window = window_.get();
    if (!window)
        return;
    const auto orientation = static_cast<std::int64_t>(toolkit::UIDevice::currentDevice().orientation());
    const Rect screen = getScreenFrameByOrientation(orientation);
    const bool landscape = geometry::isLandscape(orientation);
    const geometry::GrabberStrip strip = geometry::grabberStrip(screen.height);
    const double width = VelaSettingsManager::sharedInstance().sensibilityOfVelaGrabber();

    switch (type_) {
    case LeftPanel: {
        const double panel = geometry::panelWidth(screen.width, leftScale(landscape));
        window->setFrame({-panel, 0, panel, screen.height});
        break;
    }
    case RightPanel: {
        const double panel = geometry::panelWidth(screen.width, rightScale(landscape));
        window->setFrame({screen.width, 0, panel, screen.height});
        break;
    }
    case LeftGrabber:
        window->setFrame({0, strip.top, width, strip.height});
        break;
    case RightGrabber:
        window->setFrame({screen.width - width, strip.top, width, strip.height});
        break;
    case Sharing:
        window->setFrame(screen);
        break;
    case Dimming:
        window->setFrame(screen);
        window->setAlpha(0);
        break;
    default:
        break;
    }
}

unsigned ViewController::supportedInterfaceOrientations() const {
    // A tablet and a phone answer the same.
    return toolkit::orientationMaskAll;
}

void ViewController::viewWillTransitionToSize(toolkit::Size size,
                                              toolkit::TransitionCoordinator& coordinator) {
    runtime::WeakPtr<ViewController> self(this);
    coordinator.animateAlongside(
        [self] {
            if (self)
                self->refresh();
        },
        {});
    UIViewController::viewWillTransitionToSize(size, coordinator);
}

} // namespace vela
