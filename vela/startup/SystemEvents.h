// The host's events that the panels answer: the Home button, the display turning off, and the volume display,
// which is held back while the volume is being set in the music panel itself.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/views/UIView.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vela::events {

using runtime::Object;

/// What happens to the next volume display.
enum VolumeDisplayGate : std::int32_t {
    Suppressed = 0,  // the panel's slider is being dragged
    SwallowNext = 1, // it has just been let go of
    Shown = 2,
};
std::int32_t& canShowHUD();

/// Closes both panels, whether open or not.
void dismissVela(Object& self);

bool clickedMenuButton(Object& self);
bool handleMenuDoubleTap(Object& self);
void handleDisplayTurnedOff(Object& self);
void presentHUDView(Object& self, std::shared_ptr<toolkit::UIView> view, double delay);
void volumeSliderBeganChanging(Object& self, Object* slider);
void volumeSliderStoppedChanging(Object& self, Object* slider);

// The replaced implementations.
inline std::function<bool(Object&)> originalClickedMenuButton;
inline std::function<bool(Object&)> originalHandleMenuDoubleTap;
inline std::function<void(Object&)> originalHandleDisplayTurnedOff;
inline std::function<void(Object&, std::shared_ptr<toolkit::UIView>, double)> originalPresentHUDView;
inline std::function<void(Object&, Object*)> originalVolumeSliderBeganChanging;
inline std::function<void(Object&, Object*)> originalVolumeSliderStoppedChanging;

} // namespace vela::events
