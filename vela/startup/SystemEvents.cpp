#include "vela/startup/SystemEvents.h"

#include "platform/homescreen/SpringBoard.h"
#include "platform/media/MPUMediaControlsView.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/runtime/Message.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"

namespace vela::events {

namespace {

const runtime::Message<std::shared_ptr<Object>()> accessibilityTopDisplay{"_accessibilityTopDisplay"};
const runtime::Message<std::string()> bundleIdentifier{"bundleIdentifier"};

bool aPanelIsShown() {
    const ModuleState& state = moduleState();
    return (state.leftGrabber && state.leftGrabber->showed()) ||
           (state.rightGrabber && state.rightGrabber->showed());
}

/// A press while a panel is open closes the panels and does nothing else.
bool answerHomePress(Object& self, const std::function<bool(Object&)>& original) {
    if (!aPanelIsShown()) {
        availability::applied().offID.clear();
        return original(self);
    }
    messages::dismissVela(moduleState().spring);
    return true;
}

bool isPanelsVolumeView(const Object& volumeView) {
    const ModuleState& state = moduleState();
    if (!state.right)
        return false;
    const Object& controls = *state.right->mediaController();
    const auto view = controls.isa().instanceVariable(controls, "_mediaControlsView");
    const auto* mediaControls = dynamic_cast<const media::MPUMediaControlsView*>(view.get());
    return mediaControls && mediaControls->volumeView().get() == &volumeView;
}

} // namespace

std::int32_t& canShowHUD() {
    static std::int32_t gate = Shown;
    return gate;
}

void dismissVela(Object&) {
    const ModuleState& state = moduleState();
    if (state.leftGrabber)
        state.leftGrabber->dismissControllerWithTap();
    if (state.rightGrabber)
        state.rightGrabber->dismissControllerWithTap();
}

bool clickedMenuButton(Object& self) {
    return answerHomePress(self, originalClickedMenuButton);
}

bool handleMenuDoubleTap(Object& self) {
    return answerHomePress(self, originalHandleMenuDoubleTap);
}

void handleDisplayTurnedOff(Object& self) {
    originalHandleDisplayTurnedOff(self);
    Object* spring = moduleState().spring;
    const std::shared_ptr<Object> front = accessibilityTopDisplay(spring);
    const bool named = front && runtime::respondsTo(*front, "bundleIdentifier");
    availability::applied().offID = named ? bundleIdentifier(*front) : std::string();
    messages::dismissVela(spring);
}

void presentHUDView(Object& self, std::shared_ptr<toolkit::UIView> view, double delay) {
    if (canShowHUD() == SwallowNext)
        canShowHUD() = Shown;
    else if (canShowHUD() == Shown)
        originalPresentHUDView(self, std::move(view), delay);
}

void volumeSliderBeganChanging(Object& self, Object* slider) {
    originalVolumeSliderBeganChanging(self, slider);
    if (canShowHUD() != Suppressed && isPanelsVolumeView(self))
        canShowHUD() = Suppressed;
}

void volumeSliderStoppedChanging(Object& self, Object* slider) {
    originalVolumeSliderStoppedChanging(self, slider);
    if (isPanelsVolumeView(self))
        canShowHUD() = SwallowNext;
}

} // namespace vela::events
