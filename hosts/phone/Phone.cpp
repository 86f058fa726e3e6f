#include "hosts/phone/Phone.h"

#include "hosts/phone/InterfaceOrientation.h"
#include "hosts/phone/PhoneScreens.h"
#include "hosts/phone/applications/InstalledApplications.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/RunLoop.h"
#include "platform/homescreen/SBHUDController.h"
#include "platform/homescreen/SBUIController.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double rotationDuration = 0.3; // seconds
constexpr double unlockDuration = 0.35;
constexpr double volumeDisplayTime = 1.5;
constexpr std::int64_t portrait = 1;

double now() {
    return foundation::RunLoop::main().now();
}

} // namespace

struct Phone::State {
    explicit State(PhoneConfiguration newConfiguration);

    bool isTablet() const { return configuration.model.starts_with("iPad"); }
    unsigned supportedOrientations() const;
    /// Turns the interface to what is in front; answers whether it had to.
    bool updateInterfaceOrientation();
    /// Brings status bar, key window and the applications' activity in line with what is in front.
    void frontChanged();
    void endTyping();
    void leaveFront();
    void closeSwitcher();
    void setDisplayOn(bool on);
    void showLockScreen();
    void changeVolume(int steps);

    PhoneConfiguration configuration;
    std::shared_ptr<homescreen::SpringBoard> springBoard = std::make_shared<homescreen::SpringBoard>();
    WallClock clock;
    std::shared_ptr<ApplicationStage> stage;
    std::unique_ptr<PhoneScreens> screens; // null until the launch
    std::shared_ptr<Application> active;   // in front, seen and unlocked
    std::int64_t interfaceOrientation = portrait;
    bool locked = false;
    bool displayOn = true;
    int volume = VolumeDisplay::steps / 2;
    int hudCount = 0;
};

Phone::State::State(PhoneConfiguration newConfiguration)
    : configuration(std::move(newConfiguration)),
      clock(configuration.wallClock, configuration.secondsFromUtc),
      stage(std::make_shared<ApplicationStage>(makeInstalledApplications(clock))) {}

unsigned Phone::State::supportedOrientations() const {
    const auto& front = stage->front();
    if (front && !locked)
        return front->description().orientations;
    return isTablet() ? orientationMaskAll : orientationMaskPortrait;
}

bool Phone::State::updateInterfaceOrientation() {
    const std::int64_t wanted = chooseInterfaceOrientation(UIDevice::currentDevice().orientation(),
                                                           interfaceOrientation, supportedOrientations());
    const bool turns = wanted != interfaceOrientation;
    if (turns) {
        interfaceOrientation = wanted;
        TouchDispatcher::shared().cancelAll(now()); // their coordinates are those of another screen now
        WindowServer::shared().setInterfaceOrientation(static_cast<int>(wanted), rotationDuration);
        screens->fitScreen();
        stage->fitScreen();
    }
    if (const auto& front = stage->front())
        front->setStatusBarOrientation(interfaceOrientation);
    return turns;
}

void Phone::State::frontChanged() {
    const auto& front = stage->front();
    const bool overApplication = front && !screens->switcherWindow->isOpen();
    screens->statusBar->setStyle(overApplication ? front->description().statusBarStyle
                                                 : StatusBarStyle::LightContent);
    WindowServer::shared().setKeyWindow(front ? front->window().get() : screens->homeWindow.get());
    const auto nowActive = displayOn && !locked ? front : nullptr;
    if (nowActive == active)
        return;
    const auto former = std::exchange(active, nowActive);
    if (former)
        former->resignedActive();
    if (active)
        active->becameActive();
}

void Phone::State::endTyping() {
    if (TextInput* input = TextInput::current())
        input->resignFirstResponder();
    screens->keyboardWindow->setShown(false);
}

void Phone::State::leaveFront() {
    const auto front = stage->front();
    endTyping();
    // Over a turning screen there is no icon to shrink into.
    const bool turns = chooseInterfaceOrientation(
                           UIDevice::currentDevice().orientation(), interfaceOrientation,
                           isTablet() ? orientationMaskAll : orientationMaskPortrait) != interfaceOrientation;
    stage->leave(turns ? Rect() : screens->iconFrame(front->bundleIdentifier()),
                 turns ? StageTransition::Immediate : StageTransition::Zoomed);
    updateInterfaceOrientation();
    frontChanged();
}

void Phone::State::closeSwitcher() {
    screens->switcherWindow->close();
    frontChanged();
}

void Phone::State::setDisplayOn(bool on) {
    displayOn = on;
    screens->displayOffWindow->setHidden(on);
    frontChanged();
}

void Phone::State::showLockScreen() {
    locked = true;
    screens->switcherWindow->close();
    screens->lockScreen->reset();
    screens->lockWindow->setAlpha(1);
    screens->lockWindow->setHidden(false);
    WindowServer::shared().setSecureOnly(true);
    updateInterfaceOrientation();
    frontChanged();
}

void Phone::State::changeVolume(int steps) {
    volume = std::clamp(volume + steps, 0, VolumeDisplay::steps);
    if (!displayOn)
        return;
    screens->volumeDisplay->setLevel(volume);
    homescreen::SBHUDController::sharedHUDController().presentHUDView(screens->volumeDisplay,
                                                                      volumeDisplayTime);
}

// ---- Life

Phone::Phone(PhoneConfiguration configuration) {
    auto& process = foundation::ProcessInfo::shared();
    process.mainBundleIdentifier = "com.apple.springboard";
    process.systemVersion = configuration.systemVersion;
    process.deviceModel = configuration.model;
    UIScreen::mainScreen().setSize(configuration.screenSize);
    UIScreen::mainScreen().setScale(configuration.screenScale);
    UIDevice::currentDevice().setOrientation(DeviceOrientation::Portrait);
    WindowServer::shared().attachToMainRunLoop();
    WindowServer::shared().setSecureOnly(false);
    state_ = std::make_unique<State>(std::move(configuration));
    setCurrent(this);
}

Phone::~Phone() {
    if (current() == this)
        setCurrent(nullptr);
    if (state_->active)
        state_->active->resignedActive(); // an animation may keep it longer than its clock
    TouchDispatcher::shared().cancelAll(now());
    WindowServer::shared().setSecureOnly(false);
}

void Phone::launch() {
    state_->springBoard->applicationDidFinishLaunching(state_->springBoard.get());
}

void Phone::finishLaunching() {
    if (state_->screens)
        return;
    const auto keyboardFrameChanged = [state = state_.get()](Rect frame) {
        if (const auto& front = state->stage->front())
            front->keyboardFrameChanged(frame);
    };
    state_->screens = std::make_unique<PhoneScreens>(
        *state_->stage, state_->clock, state_->isTablet(),
        PhoneScreenActions{[this](const std::string& identifier) { openApplication(identifier); },
                           [this](const std::string& identifier) {
                               if (!openApplication(identifier))
                                   state_->closeSwitcher();
                           },
                           [this] { unlock(); }, keyboardFrameChanged});
    state_->frontChanged();
}

// ---- What a hand does

void Phone::press(Button button) {
    switch (button) {
    case Button::Home:
        homescreen::SBUIController::sharedInstance().clickedMenuButton();
        return;
    case Button::HomeDouble:
        homescreen::SBUIController::sharedInstance().handleMenuDoubleTap();
        return;
    case Button::Lock:
        if (state_->displayOn)
            lock();
        else
            state_->setDisplayOn(true);
        return;
    case Button::VolumeUp:
        return state_->changeVolume(1);
    case Button::VolumeDown:
        return state_->changeVolume(-1);
    }
}

bool Phone::openApplication(const std::string& bundleIdentifier) {
    const auto application = state_->stage->find(bundleIdentifier);
    if (!application)
        return false;
    const bool fromSwitcher = state_->screens->switcherWindow->isOpen();
    state_->closeSwitcher();
    if (application == state_->stage->front())
        return true;
    state_->endTyping();
    // The screen turns first, so that the window is laid out once, for the screen that it will stand on.
    const std::int64_t before = state_->interfaceOrientation;
    const Rect origin = state_->screens->iconFrame(bundleIdentifier);
    const std::int64_t after =
        state_->locked ? before
                       : chooseInterfaceOrientation(UIDevice::currentDevice().orientation(), before,
                                                    application->description().orientations);
    const bool zooms = before == after && !state_->locked && !fromSwitcher;
    state_->stage->open(application, origin, zooms ? StageTransition::Zoomed : StageTransition::Immediate);
    state_->updateInterfaceOrientation();
    state_->frontChanged();
    return true;
}

void Phone::rotate(DeviceOrientation orientation) {
    UIDevice::currentDevice().setOrientation(orientation);
    state_->updateInterfaceOrientation();
}

void Phone::lock() {
    if (!state_->displayOn)
        return;
    state_->displayOn = false;
    state_->showLockScreen();
    state_->setDisplayOn(false);
    state_->screens->lockScreenController->_handleDisplayTurnedOff();
}

void Phone::unlock() {
    state_->setDisplayOn(true);
    if (!state_->locked)
        return;
    state_->locked = false;
    WindowServer::shared().setSecureOnly(false);
    state_->updateInterfaceOrientation();
    state_->frontChanged();
    const auto window = state_->screens->lockWindow;
    UIView::animate(
        unlockDuration, 0, AnimationCurve::EaseOut,
        [&] {
            window->setAlpha(0);
            state_->screens->lockScreen->slideAway();
        },
        [window](bool finished) {
            if (finished)
                window->setHidden(true);
        });
}

void Phone::setKeyboardShown(bool shown) {
    if (!shown)
        state_->endTyping();
    else if (state_->displayOn && !state_->locked)
        state_->screens->keyboardWindow->setShown(true);
}

void Phone::touchDown(std::int64_t identifier, Point point) {
    if (state_->displayOn)
        TouchDispatcher::shared().touchDown(identifier, point, now());
}

void Phone::touchMove(std::int64_t identifier, Point point) {
    TouchDispatcher::shared().touchMove(identifier, point, now());
}

void Phone::touchUp(std::int64_t identifier) {
    TouchDispatcher::shared().touchUp(identifier, now());
}

void Phone::touchCancel(std::int64_t identifier) {
    TouchDispatcher::shared().touchCancel(identifier, now());
}

void Phone::typeText(const std::string& text) {
    if (TextInput* input = TextInput::current(); input && state_->displayOn)
        input->insertText(text);
}

void Phone::typeBackspace() {
    if (TextInput* input = TextInput::current(); input && state_->displayOn)
        input->deleteBackward();
}

// ---- What there is to see

bool Phone::isLocked() const {
    return state_->locked;
}

bool Phone::isDisplayOn() const {
    return state_->displayOn;
}

std::string Phone::frontmostIdentifier() const {
    const auto& front = state_->stage->front();
    return front ? front->bundleIdentifier() : "";
}

std::int64_t Phone::interfaceOrientation() const {
    return state_->interfaceOrientation;
}

DeviceOrientation Phone::deviceOrientation() const {
    return UIDevice::currentDevice().orientation();
}

std::vector<std::string> Phone::applicationIdentifiers() const {
    std::vector<std::string> identifiers;
    for (const auto& application : state_->stage->applications())
        identifiers.push_back(application->bundleIdentifier());
    return identifiers;
}

int Phone::hudCount() const {
    return state_->hudCount;
}

homescreen::SpringBoard& Phone::springBoard() const {
    return *state_->springBoard;
}

// ---- What the home screen's classes ask

std::int64_t Phone::statusBarOrientation() const {
    return state_->interfaceOrientation;
}

std::int64_t Phone::frontMostAppOrientation() const {
    return state_->interfaceOrientation;
}

std::shared_ptr<runtime::Object> Phone::topDisplay() const {
    return state_->stage->front();
}

bool Phone::isDeviceLocked() const {
    return state_->locked;
}

Rect Phone::visibleKeyboardFrame() const {
    return state_->screens ? state_->screens->keyboardWindow->visibleFrame() : Rect();
}

bool Phone::pressHome() {
    if (!state_->displayOn) {
        state_->setDisplayOn(true);
        return true;
    }
    if (state_->locked)
        return false;
    if (state_->screens->switcherWindow->isOpen()) {
        state_->closeSwitcher();
        return true;
    }
    if (!state_->stage->front())
        return false;
    state_->leaveFront();
    return true;
}

bool Phone::pressHomeTwice() {
    if (!state_->displayOn || state_->locked)
        return pressHome();
    if (state_->screens->switcherWindow->isOpen()) {
        state_->closeSwitcher();
        return true;
    }
    if (state_->stage->recent().empty())
        return false;
    state_->endTyping();
    state_->screens->switcherWindow->open(*state_->stage);
    state_->frontChanged();
    return true;
}

void Phone::displayTurnedOff() {
    TouchDispatcher::shared().cancelAll(now());
    state_->endTyping();
}

void Phone::presentHud(const std::shared_ptr<UIView>& view, double delay) {
    ++state_->hudCount;
    state_->screens->volumeWindow->present(view, delay);
}

std::optional<std::string> Phone::displayName(const std::string& bundleIdentifier) const {
    const auto application = state_->stage->find(bundleIdentifier);
    return application ? std::optional(application->displayName()) : std::nullopt;
}

Size Phone::defaultIconImageSize() const {
    return PhoneScreens::iconSize(state_->isTablet());
}

std::shared_ptr<const Image> Phone::captureScreen() {
    auto& server = WindowServer::shared();
    if (server.needsFrame() || server.compositor().paintedFrames() == 0)
        server.composeFrame();
    return server.compositor().image();
}

} // namespace phone
