#include "hosts/phone/PhoneState.h"

#include "hosts/phone/InterfaceOrientation.h"
#include "hosts/phone/applications/InstalledApplications.h"
#include "hosts/phone/music/VirtualPlaybackEngine.h"
#include "platform/foundation/RunLoop.h"
#include "platform/homescreen/SBHUDController.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <cmath>

using namespace toolkit;

namespace phone {

namespace {

constexpr double rotationDuration = 0.3; // seconds
constexpr double volumeDisplayTime = 1.5;

std::shared_ptr<playback::PlaybackEngine> engineOf(const PhoneConfiguration& configuration) {
    if (configuration.playbackEngine)
        return configuration.playbackEngine;
    return std::make_shared<VirtualPlaybackEngine>();
}

} // namespace

PhoneState::PhoneState(PhoneConfiguration newConfiguration, std::function<void()> openPlayer)
    : configuration(std::move(newConfiguration)),
      clock(configuration.wallClock, configuration.secondsFromUtc),
      music(engineOf(configuration), configuration.musicLibrary, volume,
            {[this](double newVolume) { setVolume(newVolume); }, std::move(openPlayer)}),
      stage(std::make_shared<ApplicationStage>(makeInstalledApplications(clock, music))),
      presenter(configuration.outside, *stage) {}

unsigned PhoneState::supportedOrientations() const {
    const auto& front = stage->front();
    if (front && !locked)
        return front->description().orientations;
    return isTablet() ? orientationMaskAll : orientationMaskPortrait;
}

bool PhoneState::updateInterfaceOrientation() {
    const std::int64_t wanted = chooseInterfaceOrientation(UIDevice::currentDevice().orientation(),
                                                           interfaceOrientation, supportedOrientations());
    const bool turns = wanted != interfaceOrientation;
    if (turns) {
        interfaceOrientation = wanted;
        TouchDispatcher::shared().cancelAll(
            foundation::RunLoop::main().now()); // their coordinates are those of another screen now
        WindowServer::shared().setInterfaceOrientation(static_cast<int>(wanted), rotationDuration);
        screens->fitScreen();
        stage->fitScreen();
        presenter.fitScreen();
    }
    if (const auto& front = stage->front())
        front->setStatusBarOrientation(interfaceOrientation);
    return turns;
}

void PhoneState::frontChanged() {
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

void PhoneState::endTyping() {
    if (TextInput* input = TextInput::current())
        input->resignFirstResponder();
    screens->keyboardWindow->setShown(false);
}

void PhoneState::leaveFront() {
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

void PhoneState::closeSwitcher() {
    screens->switcherWindow->close();
    frontChanged();
}

void PhoneState::setDisplayOn(bool on) {
    displayOn = on;
    screens->displayOffWindow->setHidden(on);
    frontChanged();
}

void PhoneState::showLockScreen() {
    locked = true;
    screens->switcherWindow->close();
    screens->lockScreen->reset();
    screens->lockWindow->setAlpha(1);
    screens->lockWindow->setHidden(false);
    WindowServer::shared().setSecureOnly(true);
    updateInterfaceOrientation();
    frontChanged();
}

void PhoneState::changeVolume(int steps) {
    const double step = std::round(volume * VolumeDisplay::steps) + steps;
    setVolume(std::clamp(step / VolumeDisplay::steps, 0.0, 1.0));
}

void PhoneState::setVolume(double newVolume) {
    volume = newVolume;
    music.volumeChanged(volume);
    if (!displayOn || !screens)
        return;
    const int level = static_cast<int>(std::lround(volume * VolumeDisplay::steps));
    screens->volumeDisplay->setLevel(volume > 0 ? std::max(level, 1) : 0);
    homescreen::SBHUDController::sharedHUDController().presentHUDView(screens->volumeDisplay,
                                                                      volumeDisplayTime);
}

} // namespace phone
