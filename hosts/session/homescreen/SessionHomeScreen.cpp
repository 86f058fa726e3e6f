#include "hosts/session/homescreen/SessionHomeScreen.h"

#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/UIDevice.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

namespace session {

using toolkit::Rect;
using toolkit::Size;
using toolkit::UIScreen;
using toolkit::WindowServer;

namespace {

constexpr double keyboardShare = 0.4; // of the screen's height, where only its being there is told

} // namespace

SessionHomeScreen::SessionHomeScreen(bus::Bus& session, bus::Bus& system, Configuration configuration)
    : configuration_(std::move(configuration)),
      springBoard_(std::make_shared<homescreen::SpringBoard>()),
      lockScreen_(std::make_shared<homescreen::SBLockScreenViewController>()),
      login_(system, [this] { loginHasChanged(); }),
      keyboard_(session, [] {}), // the product asks twice a second
      sensor_(system, [this] { followOutput(); }) {
    auto& process = foundation::ProcessInfo::shared();
    process.mainBundleIdentifier = "com.apple.springboard";
    process.systemVersion = configuration_.systemVersion;
    process.deviceModel = configuration_.model;
    WindowServer::shared().attachToMainRunLoop();
    setCurrent(this);
}

void SessionHomeScreen::launch() {
    springBoard_->applicationDidFinishLaunching(springBoard_.get());
}

void SessionHomeScreen::finishLaunching() {
    keyWindow_ = std::make_shared<toolkit::UIWindow>(UIScreen::mainScreen().bounds());
    keyWindow_->setUserInteractionEnabled(false);
    keyWindow_->setRootViewController(std::make_shared<toolkit::UIViewController>());
    keyWindow_->makeKeyAndVisible();
}

// ---- Output

void SessionHomeScreen::setOutput(const Output* output, double scale) {
    output_ = output;
    scale_ = scale;
    followOutput();
}

void SessionHomeScreen::followOutput() {
    if (output_ && output_->isReady())
        layOut();
    followPower();
}

void SessionHomeScreen::layOut() {
    const Size size = output_->logicalSize();
    const bool sideways = output_->transform() % 2 == 1;
    const bool isWide = size.width > size.height;
    const auto before = orientation_;
    orientation_ =
        orientationOfOutput(isWide, output_->transform(), isWide == sideways, sensor_.orientation());
    toolkit::UIDevice::currentDevice().setOrientation(static_cast<toolkit::DeviceOrientation>(orientation_));
    if (front_)
        front_->setStatusBarOrientation(orientation_);
    const bool resized = size != UIScreen::mainScreen().bounds().size();
    if (resized && keyWindow_)
        configuration_.resizing(before != orientation_);
    setScreen(size);
    if (keyWindow_ && (resized || before != orientation_))
        WindowServer::shared().setInterfaceOrientation(static_cast<int>(orientation_), 0);
}

void SessionHomeScreen::setScreen(Size size) {
    UIScreen::mainScreen().setSize(size);
    UIScreen::mainScreen().setScale(scale_);
    if (keyWindow_)
        keyWindow_->setFrame(UIScreen::mainScreen().bounds());
    toolkit::Layer::noteChange();
}

/// Where the compositor does not tell, the login manager knows that nobody looks.
bool SessionHomeScreen::isOutputOn() const {
    if (!output_ || !output_->isReady())
        return false;
    return output_->isPowerWatched() ? output_->isOn() : !login_.isIdle();
}

void SessionHomeScreen::followPower() {
    const bool on = isOutputOn();
    const bool turnedOff = std::exchange(displayOn_, on) && !on;
    if (turnedOff && keyWindow_)
        lockScreen_->_handleDisplayTurnedOff();
    tellWhetherSeen();
}

void SessionHomeScreen::tellWhetherSeen() {
    if (std::exchange(seen_, mayBeSeen()) != mayBeSeen())
        configuration_.mayBeSeenChanged();
}

// ---- What the session does

void SessionHomeScreen::setFront(const std::string& window) {
    front_ = window.empty() ? nullptr : applicationInFront(window);
}

/// Under the identifier of its desktop entry, by which the settings know it too.
std::shared_ptr<homescreen::SBApplication>
SessionHomeScreen::applicationInFront(const std::string& window) const {
    const auto entry = entries_.findByWindow(window);
    auto application = std::make_shared<homescreen::SBApplication>(entry ? entry->identifier : window,
                                                                   entry ? entry->name : window);
    application->setStatusBarOrientation(orientation_);
    return application;
}

void SessionHomeScreen::loginHasChanged() {
    tellWhetherSeen();
    const bool isNews = std::exchange(locked_, isLocked()) != isLocked();
    if (isNews && isLocked() && keyWindow_)
        lockScreen_->_handleDisplayTurnedOff();
    followPower();
}

void SessionHomeScreen::displayTurnedOff() {
    toolkit::TouchDispatcher::shared().cancelAll(foundation::RunLoop::main().now());
}

Rect SessionHomeScreen::visibleKeyboardFrame() const {
    if (!keyboard_.isVisible())
        return {};
    const Size screen = UIScreen::mainScreen().bounds().size();
    const double height = screen.height * keyboardShare;
    return {0, screen.height - height, screen.width, height};
}

std::optional<std::string> SessionHomeScreen::displayName(const std::string& bundleIdentifier) const {
    const auto entry = entries_.find(bundleIdentifier);
    return entry ? entry->name : configuration_.playerName(bundleIdentifier);
}

} // namespace session
