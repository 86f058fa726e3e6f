#include "vela/startup/LaunchAssembly.h"

#include "platform/foundation/RunLoop.h"
#include "platform/homescreen/SpringBoard.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

using toolkit::UIWindow;

namespace vela::launch {

namespace {

constexpr double panelLevel = 2001;

foundation::Handle& cycleTimer() {
    static auto& timer = *new foundation::Handle; // never torn down
    return timer;
}

template <class Window>
std::shared_ptr<Window> makeShownWindow() {
    auto window = std::make_shared<Window>();
    window->setHidden(false);
    window->setUserInteractionEnabled(true);
    return window;
}

template <class Panel>
std::shared_ptr<Panel> makePanel() {
    auto panel = makeShownWindow<Panel>();
    panel->setWindowLevel(panelLevel);
    return panel;
}

template <class Grabber, class Panel>
std::shared_ptr<Grabber> makeGrabber(const std::shared_ptr<Panel>& panel,
                                     const std::shared_ptr<darkingWindow>& darking) {
    auto grabber = makeShownWindow<Grabber>();
    grabber->setController(panel);
    grabber->setDarking(darking);
    return grabber;
}

void makeWindows(ModuleState& state) {
    state.darking = makeShownWindow<darkingWindow>();
    state.darking->setAlpha(0);

    state.right = makePanel<rightController>();
    state.rightGrabber = makeGrabber<rightWindowGrabber>(state.right, state.darking);
    state.darking->setRightGrabber(state.rightGrabber);

    state.left = makePanel<leftController>();
    state.leftGrabber = makeGrabber<leftWindowGrabber>(state.left, state.darking);
    state.darking->setLeftGrabber(state.leftGrabber);

    state.lastChevrons = VelaSettingsManager::sharedInstance().isChevronsHidden();
    state.social = std::make_shared<socialWindow>();
}

void startCycle(runtime::Object& self) {
    cycleTimer() = foundation::RunLoop::main().scheduleTimer(availability::interval, true,
                                                             [&self] { messages::velaCycler(self); });
    messages::velaCycler(self);
}

} // namespace

void applicationDidFinishLaunching(runtime::Object& self, runtime::Object* application) {
    originalApplicationDidFinishLaunching(self, application);
    moduleState().spring = static_cast<homescreen::SpringBoard*>(&self);
    makeWindows(moduleState());
    startCycle(self);
}

std::shared_ptr<UIWindow> darkingWindowAccessor(runtime::Object&) {
    return moduleState().darking;
}
std::shared_ptr<UIWindow> socialWindowAccessor(runtime::Object&) {
    return moduleState().social;
}
std::shared_ptr<UIWindow> leftGrabberAccessor(runtime::Object&) {
    return moduleState().leftGrabber;
}
std::shared_ptr<UIWindow> rightGrabberAccessor(runtime::Object&) {
    return moduleState().rightGrabber;
}

void stopCycle() {
    cycleTimer().reset();
}

} // namespace vela::launch
