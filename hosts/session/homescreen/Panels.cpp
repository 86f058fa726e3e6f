#include "hosts/session/homescreen/Panels.h"

#include "hosts/session/wayland/InputReceiver.h"
#include "platform/foundation/RunLoop.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <utility>

namespace session {

using toolkit::Point;
using toolkit::Rect;
using toolkit::UIScreen;
using toolkit::UIWindow;
using toolkit::WindowServer;

namespace {

/// A finger of its own, beside the pointer's and those of the touch screen.
constexpr std::int64_t finger = pointerFinger + 1;
/// A little more than a fling takes, and no more: the panel then comes in at its most leisurely.
constexpr double speed = 550; // points a second
constexpr double step = 1.0 / 60;
constexpr int steps = 5;

const runtime::Message<std::shared_ptr<UIWindow>()> leftGrabberWindow{"leftGrabberWindow"};
const runtime::Message<std::shared_ptr<UIWindow>()> rightGrabberWindow{"rightGrabberWindow"};
const runtime::Message<void()> dismissControllerWithTap{"dismissControllerWithTap"};

constexpr Side other(Side side) {
    return side == Side::Left ? Side::Right : Side::Left;
}

const UIWindow* panelOf(Side side) {
    const std::string name = side == Side::Left ? "leftController" : "rightController";
    for (const UIWindow* window : WindowServer::shared().windows())
        if (window->isa().name() == name)
            return window;
    return nullptr;
}

/// Whether any of it is on the screen, or will be when it has come to rest.
bool isOnScreen(Side side) {
    const UIWindow* panel = panelOf(side);
    return panel && !panel->isHidden() &&
           !panel->frame().intersection(UIScreen::mainScreen().bounds()).isEmpty();
}

/// Whether it is on its way in or out, or rests on the screen. The end of its way belongs to it: what a panel
/// does then would not be done if the other one took the dimming over a moment earlier.
bool isUnderWay(Side side) {
    const UIWindow* panel = panelOf(side);
    return panel && !panel->isHidden() && (isOnScreen(side) || panel->layer()->hasAnimations());
}

} // namespace

std::optional<Side> sideNamed(const std::string& name) {
    if (name == "left")
        return Side::Left;
    if (name == "right")
        return Side::Right;
    return std::nullopt;
}

const char* nameOf(Side side) {
    return side == Side::Left ? "left" : "right";
}

Panels::Panels(homescreen::SpringBoard& springBoard, Callbacks callbacks)
    : springBoard_(springBoard), callbacks_(std::move(callbacks)) {
    hook_ = foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Commit, [this] { lookAgain(); });
}

/// From model values, which are those at which a panel will come to rest.
std::optional<Side> Panels::look() const {
    if (isOnScreen(Side::Left))
        return Side::Left;
    if (isOnScreen(Side::Right))
        return Side::Right;
    return std::nullopt;
}

void Panels::lookAgain() {
    const auto now = look();
    if (std::exchange(shown_, now) != now)
        callbacks_.changed();
    if (next_)
        showNext();
}

void Panels::showNext() {
    if (!isUnderWay(other(*next_)))
        pull(*std::exchange(next_, std::nullopt));
}

bool Panels::show(Side side) {
    next_.reset();
    if (!callbacks_.mayShow())
        return false;
    if (look() == side)
        return true;
    if (!look())
        return pull(side);
    dismiss();
    next_ = side;
    return true;
}

std::shared_ptr<UIWindow> Panels::grabberOf(Side side) const {
    const auto& message = side == Side::Left ? leftGrabberWindow : rightGrabberWindow;
    return runtime::respondsTo(springBoard_, message.selector()) ? message(springBoard_) : nullptr;
}

bool Panels::pull(Side side) {
    const std::shared_ptr<UIWindow> grabber = grabberOf(side);
    if (!grabber)
        return false;
    const Point start = grabber->frame().center();
    const double direction = side == Side::Left ? 1 : -1;
    auto& fingers = toolkit::TouchDispatcher::shared();
    // In event time it lasts as long as a finger's pan, and ends now.
    const double end = foundation::RunLoop::main().now(), begin = end - steps * step;
    fingers.touchDown(finger, start, begin);
    for (int i = 1; i <= steps; ++i)
        fingers.touchMove(finger, {start.x + direction * speed * step * i, start.y}, begin + step * i);
    fingers.touchUp(finger, end);
    return look() == side;
}

/// As a tap beside the panel does.
void Panels::dismiss() {
    next_.reset();
    const auto side = look();
    const std::shared_ptr<UIWindow> grabber = side ? grabberOf(*side) : nullptr;
    if (grabber && runtime::respondsTo(*grabber, dismissControllerWithTap.selector()))
        dismissControllerWithTap(*grabber);
}

bool Panels::toggle(Side side) {
    if (look() != side)
        return show(side);
    dismiss();
    return true;
}

} // namespace session
