#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "vela/nowplaying/NowPlayingState.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/HookTable.h"
#include "vela/startup/LaunchAssembly.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/Rotation.h"
#include "vela/startup/SystemEvents.h"
#include "vela/stores/Paths.h"

#include <cmath>
#include <unistd.h>

using foundation::FileManager;
using foundation::PropertyList;
using namespace toolkit;

namespace tests {

namespace {

std::filesystem::path makeTemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vela-test-XXXXXX").string();
    return mkdtemp(pattern.data());
}

/// Hooks cannot be taken out again, and a second installation would put each around itself.
void installHooksOnce() {
    static const bool installed = (vela::installHooks(), true);
    (void)installed;
}

void forgetLaunch() {
    vela::launch::stopCycle();
    vela::nowplaying::nowPlayingState() = {};
    vela::moduleState() = {};
    vela::availability::applied() = {};
    vela::rotation::resetDone();
    vela::events::canShowHUD() = vela::events::Shown;
}

} // namespace

ProductTest::ProductTest() : root(makeTemporaryDirectory()) {
    foundation::RunLoop::setMain(&loop);
    WindowServer::shared().attachToMainRunLoop();
    auto& files = FileManager::shared();
    files.setDeviceRoot(root);
    files.createDirectories("/var/mobile/Library/Preferences");
    files.createDirectories("/var/mobile/Documents");
    files.createDirectories("/Library/Application Support/Vela");
    foundation::setLogToStandardError(false);
    foundation::clearLog();
    auto& process = foundation::ProcessInfo::shared();
    process.mainBundleIdentifier = "com.apple.springboard";
    process.systemVersion = "9.3";
    process.deviceModel = "iPhone";
    screen(375, 667);
    UIScreen::mainScreen().setScale(1);
    device(DeviceOrientation::Portrait);
    UIDevice::currentDevice().clearForcedOrientation();
    forgetLaunch();
    host = std::make_unique<TestHost>();
}

ProductTest::~ProductTest() {
    TouchDispatcher::shared().cancelAll(loop.now());
    forgetLaunch();
    loop.advance(1); // what was under way comes to its end
    host.reset();
    foundation::RunLoop::setMain(nullptr);
    std::filesystem::remove_all(root);
}

void ProductTest::preferences(PropertyList::Dictionary values) {
    ASSERT_TRUE(FileManager::shared().writeDictionaryAtomically(vela::paths::preferences, values));
}

void ProductTest::preference(const std::string& key, PropertyList value) {
    auto values =
        FileManager::shared().readDictionary(vela::paths::preferences).value_or(PropertyList::Dictionary());
    if (value.isNil())
        values.erase(key);
    else
        values[key] = std::move(value);
    preferences(std::move(values));
}

PropertyList::Dictionary ProductTest::usualPreferences() {
    return {{"Enable", true},
            {"Blur", "dark"},
            {"Grabber height", "full"},
            {"left_size_portrait", 0.8},
            {"left_size_landscape", 0.5},
            {"right_size_portrait", 0.8},
            {"right_size_landscape", 0.5}};
}

void ProductTest::screen(double width, double height) {
    UIScreen::mainScreen().setSize({width, height});
}

void ProductTest::device(DeviceOrientation orientation) {
    UIDevice::currentDevice().setOrientation(orientation);
}

void ProductTest::launch() {
    installHooksOnce();
    host->springBoard->applicationDidFinishLaunching(host->springBoard.get());
    loop.turn();
}

void ProductTest::touchDown(double x, double y, std::int64_t finger) {
    fingers_[finger] = {x, y};
    TouchDispatcher::shared().touchDown(finger, {x, y}, loop.now());
    loop.turn();
}

void ProductTest::touchMove(double x, double y, double seconds, std::int64_t finger) {
    const Point from = fingers_[finger];
    const int steps = std::max(1, static_cast<int>(std::lround(seconds * 60)));
    for (int step = 1; step <= steps; ++step) {
        loop.advance(seconds / steps);
        const double part = static_cast<double>(step) / steps;
        const Point p{from.x + (x - from.x) * part, from.y + (y - from.y) * part};
        TouchDispatcher::shared().touchMove(finger, p, loop.now());
        loop.turn();
    }
    fingers_[finger] = {x, y};
}

void ProductTest::touchUp(std::int64_t finger) {
    TouchDispatcher::shared().touchUp(finger, loop.now());
    loop.turn();
}

void ProductTest::tap(double x, double y) {
    touchDown(x, y);
    loop.advance(foundation::RunLoop::frameInterval);
    touchUp();
}

} // namespace tests
