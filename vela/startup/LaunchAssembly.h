// Makes the product's windows once the host has launched, and starts the availability cycle.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <functional>
#include <memory>

namespace vela::launch {

/// The host's own launch first, then the product's. Once per process.
void applicationDidFinishLaunching(runtime::Object& self, runtime::Object* application);
inline std::function<void(runtime::Object&, runtime::Object*)> originalApplicationDidFinishLaunching;

// The product's windows; null before launch.
std::shared_ptr<toolkit::UIWindow> darkingWindowAccessor(runtime::Object& self);
std::shared_ptr<toolkit::UIWindow> socialWindowAccessor(runtime::Object& self);
std::shared_ptr<toolkit::UIWindow> leftGrabberAccessor(runtime::Object& self);
std::shared_ptr<toolkit::UIWindow> rightGrabberAccessor(runtime::Object& self);

/// Stops the cycle's timer, which otherwise runs as long as the process; for tests.
void stopCycle();

} // namespace vela::launch
