#include "vela/startup/AvailabilityCycle.h"

#include "platform/homescreen/SBUserAgent.h"
#include "platform/homescreen/UIPeripheralHost.h"
#include "platform/runtime/Message.h"
#include "vela/panels/GrabberColors.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/ScreenGeometry.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;
using runtime::Object;

namespace vela::availability {

namespace {

const runtime::Message<std::int64_t()> statusBarOrientation{"statusBarOrientation"};
const runtime::Message<std::shared_ptr<Object>()> accessibilityTopDisplay{"_accessibilityTopDisplay"};
const runtime::Message<std::string()> bundleIdentifier{"bundleIdentifier"};

VelaSettingsManager& settings() {
    return VelaSettingsManager::sharedInstance();
}

void refreshGrabbers(ModuleState& state) {
    state.leftGrabber->contr()->refresh();
    state.rightGrabber->contr()->refresh();
}

/// Makes the pass lay the grabbers out again when one of them does not have the height that it should.
void noticeStaleFrames(const ModuleState& state, Object& self) {
    const double screenHeight =
        messages::getScreenFrameByOrientation(self, statusBarOrientation(self)).height;
    const double height = geometry::grabberStrip(screenHeight).height;
    const auto differs = [height](const auto& grabber) {
        return (grabber ? grabber->frame().height : 0.0) != height;
    };
    if (differs(state.leftGrabber) || differs(state.rightGrabber))
        applied().grabberHeight = "";
}

void applyChevrons(ModuleState& state) {
    const bool chevrons = settings().isChevronsHidden();
    if (chevrons == state.lastChevrons)
        return;
    state.lastChevrons = chevrons;
    state.left->layoutSubviews();
    state.right->layoutSubviews();
}

void applyGrabberHeight(ModuleState& state) {
    // What is no string equals nothing, not even itself.
    const PropertyList height = settings().grabberHeight();
    if (height.isString() && height == applied().grabberHeight)
        return;
    applied().grabberHeight = height;
    refreshGrabbers(state);
}

void applySensibility(ModuleState& state) {
    const float sensibility = settings().sensibilityOfVelaGrabber();
    if (sensibility == applied().sensibility)
        return;
    applied().sensibility = sensibility;
    refreshGrabbers(state);
}

/// Follows the orientation of what is in front. Answers whether that application switches the product off.
bool applyFrontMost(Object& self) {
    if (!runtime::respondsTo(self, "_frontMostAppOrientation"))
        return false;
    const std::shared_ptr<Object> front = accessibilityTopDisplay(self);
    std::int64_t orientation = 1;
    bool off = false;
    if (!front) {
        orientation = statusBarOrientation(self);
    } else if (runtime::respondsTo(*front, "statusBarOrientation")) {
        orientation = statusBarOrientation(*front);
        if (runtime::respondsTo(*front, "bundleIdentifier"))
            off = settings().getPreferenceForKey(bundleIdentifier(*front)).boolValue();
    }
    if (orientation != applied().orientation) {
        applied().orientation = orientation;
        messages::velaWillRotate(self, orientation, front == nullptr);
    }
    return off;
}

bool keyboardIsInTheWay(bool keyboardSetting) {
    return keyboardSetting && homescreen::UIPeripheralHost::visiblePeripheralFrame().height != 0;
}

void activate(ModuleState& state, bool rightOn, bool leftTouch, bool keyboardSetting) {
    if (keyboardIsInTheWay(keyboardSetting)) {
        state.rightGrabber->setBackgroundColor(grabberClear());
        state.leftGrabber->setBackgroundColor(grabberClear());
        state.rightGrabber->setUserInteractionEnabled(false);
        state.leftGrabber->setUserInteractionEnabled(false);
        return;
    }
    const toolkit::Color color = rightOn ? grabberTint() : grabberClear();
    state.rightGrabber->setBackgroundColor(color);
    state.leftGrabber->setBackgroundColor(color);
    state.rightGrabber->setUserInteractionEnabled(rightOn);
    state.leftGrabber->setUserInteractionEnabled(leftTouch);
}

template <class Panel, class Grabber>
void applySize(const char* key, float& last, Panel& panel, darkingWindow& darking, Grabber& grabber) {
    const float size = settings().getPreferenceForKey(key).floatValue();
    if (size == last)
        return;
    last = size;
    panel.controller()->refresh();
    darking.controller()->refresh();
    grabber.setShowed(false);
}

void applySizes(ModuleState& state) {
    Applied& last = applied();
    applySize(keys::rightSizePortrait, last.rightPortrait, *state.right, *state.darking, *state.rightGrabber);
    applySize(keys::rightSizeLandscape, last.rightLandscape, *state.right, *state.darking,
              *state.rightGrabber);
    applySize(keys::leftSizePortrait, last.leftPortrait, *state.left, *state.darking, *state.leftGrabber);
    applySize(keys::leftSizeLandscape, last.leftLandscape, *state.left, *state.darking, *state.leftGrabber);
}

} // namespace

Applied& applied() {
    static auto& values = *new Applied; // never torn down
    return values;
}

void velaCycler(Object& self) {
    ModuleState& state = moduleState();
    noticeStaleFrames(state, self);
    if (!state.left || !state.right || !state.leftGrabber || !state.rightGrabber)
        return;
    applyChevrons(state);
    applyGrabberHeight(state);
    applySensibility(state);
    bool off = applyFrontMost(self);
    if (homescreen::SBUserAgent::sharedUserAgent().deviceIsLocked() &&
        !settings().isVelaAccessibleFromLockScreen())
        off = true;

    const bool leftDisabled = settings().isLeftControllerDisabled();
    const bool enabled = settings().getPreferenceForKey(keys::enable).boolValue();
    const bool keyboardSetting = settings().getPreferenceForKey(keys::keyboard).boolValue();
    activate(state, enabled && !off, !leftDisabled, keyboardSetting);
    applySizes(state);

    // The left strip has the last word apart: seen by touches under all three conditions, while its
    // interaction follows the left switch and the keyboard alone.
    state.leftGrabber->setBackgroundColor(!enabled || off || leftDisabled ? grabberClear() : grabberTint());
}

std::string getOffID(Object&) {
    return applied().offID;
}

} // namespace vela::availability
