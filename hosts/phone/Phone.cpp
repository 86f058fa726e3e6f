#include "hosts/phone/Phone.h"

#include "hosts/phone/InterfaceOrientation.h"
#include "hosts/phone/PhoneState.h"
#include "hosts/phone/applications/RadioApplication.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/RunLoop.h"
#include "platform/homescreen/SBUIController.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double unlockDuration = 0.35; // seconds

double now() {
    return foundation::RunLoop::main().now();
}

} // namespace

struct Phone::State : PhoneState {
    using PhoneState::PhoneState;
};

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
    state_ = std::make_unique<State>(std::move(configuration), [this] {
        openApplication(state_->music.player().isRadioStation() ? applications::radio.bundleIdentifier
                                                                : MusicPlayer::applicationIdentifier);
    });
    setCurrent(this);
}

Phone::~Phone() {
    if (current() == this)
        setCurrent(nullptr);
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
        PhoneScreenActions{[this](const std::string& identifier) { tapIcon(identifier); },
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

void Phone::tapIcon(const std::string& bundleIdentifier) {
    openApplication(bundleIdentifier);
    if (bundleIdentifier == applications::settings.bundleIdentifier && state_->configuration.settingsOpened)
        state_->configuration.settingsOpened();
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

const std::vector<std::string>& Phone::openedAddresses() const {
    return state_->presenter.openedAddresses();
}

int Phone::hudCount() const {
    return state_->hudCount;
}

homescreen::SpringBoard& Phone::springBoard() const {
    return *state_->springBoard;
}

PhoneMediaPort& Phone::music() const {
    return state_->music;
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
    if (const auto application = state_->stage->find(bundleIdentifier))
        return application->displayName();
    for (const auto& player : state_->music.players().sources())
        if (player->bundleIdentifier() == bundleIdentifier)
            return player->displayName();
    return std::nullopt;
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
