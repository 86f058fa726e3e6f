#include "vela/startup/Rotation.h"

#include "platform/toolkit/windows/UIDevice.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

#include <numbers>

using toolkit::AffineTransform;
using toolkit::Rect;

namespace vela::rotation {

namespace {

bool done = false;

Rect screen() {
    return toolkit::UIScreen::mainScreen().bounds();
}

/// Angles in quarter turns.
struct Turns {
    int right = 0;
    int rightGrabber = 0;
    int left = 0;
    int leftGrabber = 0;
};

/// The rows are uneven on purpose: they are what each orientation was found to need.
Turns turnsFor(std::int64_t orientation, bool isSpring) {
    if (orientation == 3)
        return {0, -1, 0, +1};
    if (orientation == 4)
        return isSpring ? Turns{-1, -1, -1, -1} : Turns{0, +1, 0, +1};
    return {};
}

AffineTransform quarterTurns(int count) {
    return count == 0 ? AffineTransform() : AffineTransform::rotation(count * std::numbers::pi / 2);
}

template <class Window>
void place(const std::shared_ptr<Window>& window, int turns, Rect frame) {
    if (!window)
        return;
    window->setTransform(quarterTurns(turns));
    window->setFrame(frame);
}

void layOut(runtime::Object& self, std::int64_t orientation, bool isSpring, float sensibility) {
    ModuleState& state = moduleState();
    const double strip = sensibility;
    // The height setting is the left strip's alone here, and the upper half counts as the whole.
    const bool lowerHalf = VelaSettingsManager::sharedInstance().grabberHeight().equals("half_bottom");
    const float leftHeight = static_cast<float>(lowerHalf ? screen().height * 0.5 : screen().height);
    const double leftTop = lowerHalf ? screen().height * 0.5 : 0;
    const bool turned = orientation == 4;
    const double right = turned ? messages::rightSizeForOrientation(self, 4) : messages::rightSize(self);
    const double left = turned ? messages::leftSizeForOrientation(self, 4) : messages::leftSize(self);

    const Turns turns = turnsFor(orientation, isSpring);
    place(state.right, turns.right, {screen().width, 0, right, screen().height});
    place(state.rightGrabber, turns.rightGrabber, {screen().width - strip, 0, strip, screen().height});
    place(state.left, turns.left, {-left, 0, left, screen().height});
    place(state.leftGrabber, turns.leftGrabber, {0, leftTop, strip, leftHeight});
}

bool isTablet() {
    return toolkit::UIDevice::currentDevice().model().starts_with("iPad");
}

} // namespace

void velaWillRotate(runtime::Object& self, std::int64_t orientation, bool isSpring) {
    if (!isTablet()) {
        if (done) {
            toolkit::UIDevice::currentDevice().setValueForKey(foundation::PropertyList(orientation),
                                                              "orientation");
            return;
        }
        done = true;
    }
    ModuleState& state = moduleState();
    const float sensibility = VelaSettingsManager::sharedInstance().sensibilityOfVelaGrabber();
    if (state.left)
        state.left->setHidden(true);
    if (state.right)
        state.right->setHidden(true);
    if (orientation == 2)
        return;
    if (orientation == 1 || orientation == 3 || orientation == 4)
        layOut(self, orientation, isSpring, sensibility);
    if (state.darking) {
        state.darking->setAlpha(0);
        state.darking->setFrame(screen());
    }
    if (state.social)
        state.social->setFrame(screen());
}

void resetDone() {
    done = false;
}

} // namespace vela::rotation
