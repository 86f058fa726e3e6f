#include "hosts/session/program/RunningSession.h"

#include "hosts/device/ExtensionLoader.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/script/StateDump.h"
#include "hosts/session/program/MemoryUse.h"
#include "hosts/session/wayland/ConnectionError.h"
#include "platform/foundation/Log.h"
#include "platform/plugins/TimeOfDay.h"
#include "platform/toolkit/text/Font.h"
#include "platform/toolkit/windows/UIDevice.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace session {

namespace {

constexpr double retryInterval = 1; // seconds
/// What nobody sees is scrolled on once a second.
constexpr int framesTogether = 60;

plugins::TimeOfDay timeOfDay() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    return {static_cast<double>(now), localtime_r(&now, &local) ? static_cast<int>(local.tm_gmtoff) : 0};
}

} // namespace

RunningSession::RunningSession(const Options& options, foundation::GlibRunLoop& loop)
    : loop_(loop),
      outputName_(options.output),
      startTime_(loop.now()),
      homeScreen_(sessionBus_, systemBus_,
                  {options.model, "9.3", [this] { return screen_ ? screen_->capture() : nullptr; },
                   [this](bool turning) { screenIsResizing(turning); },
                   [this] {
                       if (screen_)
                           screen_->setWithheld(!homeScreen_.mayBeSeen());
                   },
                   [this](const std::string& application) { return music_.port().playerName(application); }}),
      panels_(homeScreen_.springBoard(), {[this] { return mayShowPanels(); }, [this] { shownHasChanged(); }}),
      control_(sessionBus_, panels_, [this] { return describeState(); }) {
    toolkit::setFontDirectory((device::resourceDirectory() / "fonts").c_str(), false);
    plugins::setTimeOfDaySource(timeOfDay);
    setSeen(false);
    connect();
    device::loadExtension(options.extension.value_or(device::installedExtension()));
    homeScreen_.launch();
    loop_.endTurn();
    // Whoever finds the host on the bus finds the grabbers on the screen.
    connection_->roundtrip();
    connection_->roundtrip();
}

// ---- The compositor

void RunningSession::connect() {
    connection_ = std::make_unique<Connection>();
    connection_->serve([this] { loop_.endTurn(); }, [this] { connectionLost(); });
    missing_.report(connection_->globals());
    watchToplevels();
    putUpScreen();
    connection_->globals().setOutputsChanged([this] { chooseOutput(); });
    connection_->roundtrip(); // which tells of the windows
    chooseOutput();
}

void RunningSession::watchToplevels() {
    if (auto toplevels = connection_->globals().bindToplevels())
        toplevels_ = std::make_unique<Toplevels>(std::move(toplevels),
                                                 [this] { homeScreen_.setFront(toplevels_->front()); });
}

void RunningSession::putUpScreen() {
    const auto keyboardTaken = [this](bool taken) {
        if (toplevels_)
            toplevels_->setHeld(taken);
    };
    screen_ = std::make_unique<SessionScreen>(
        *connection_, SessionScreen::Callbacks{keyboardTaken, [this] { panels_.dismiss(); },
                                               [this](bool seen) { setSeen(seen); }});
    screen_->setWithheld(!homeScreen_.mayBeSeen());
}

void RunningSession::setSeen(bool seen) {
    loop_.gatherFrames(seen ? 1 : framesTogether);
    if (!seen)
        MemoryUse::letGoOfSpare();
}

const Output* RunningSession::wantedOutput() const {
    const auto& outputs = connection_->globals().outputs();
    const auto first = [&outputs](auto fits) {
        const auto found = std::ranges::find_if(
            outputs, [&](const auto& output) { return output->isReady() && fits(*output); });
        return found == outputs.end() ? nullptr : found->get();
    };
    if (!outputName_.empty())
        return first([this](const Output& output) { return output.name() == outputName_; });
    const Output* builtIn = first([](const Output& output) { return output.isBuiltIn(); });
    return builtIn ? builtIn : first([](const Output&) { return true; });
}

void RunningSession::chooseOutput() {
    const Output* output = wantedOutput();
    const bool scales = connection_->globals().viewporter != nullptr;
    const double scale = !output ? 1 : scales ? output->scale() : output->wholeScale();
    // First from the screen, which may lie on an output that has gone.
    screen_->setOutput(output);
    homeScreen_.setOutput(output, scale);
}

void RunningSession::connectionLost() {
    foundation::log("vela-session: the compositor is gone");
    // Later: the connection itself is calling.
    loop_.performOnMain([this] {
        homeScreen_.setOutput(nullptr, 1);
        homeScreen_.setFront("");
        disconnect();
        reconnect();
    });
}

void RunningSession::disconnect() {
    screen_.reset();
    toplevels_.reset();
    connection_.reset();
    setSeen(false);
}

void RunningSession::reconnect() {
    try {
        connect();
        retry_.reset();
        waitingBecause_.clear();
        foundation::log("vela-session: the compositor is back");
    } catch (const ConnectionError& error) {
        disconnect();
        if (std::exchange(waitingBecause_, error.what()) != error.what())
            foundation::log("vela-session: waiting for a compositor: " + waitingBecause_);
        retry_ = loop_.scheduleTimer(retryInterval, false, [this] { reconnect(); });
    }
}

// ---- What there is to see

/// Fingers lose their coordinates. The product lays everything out anew, which leaves no panel on the screen;
/// it does not expect that of a screen that has not turned, and whoever is on the panel is to hear of it.
void RunningSession::screenIsResizing(bool turning) {
    if (screen_)
        screen_->cancelAllFingers();
    if (!turning)
        panels_.dismiss();
}

bool RunningSession::mayShowPanels() const {
    return screen_ && screen_->output() && homeScreen_.mayBeSeen();
}

void RunningSession::shownHasChanged() {
    music_.setWatched(panels_.shown() == Side::Right);
    control_.announce();
}

std::string RunningSession::describeState() const {
    const auto front = homeScreen_.topDisplay();
    const auto* application = dynamic_cast<const homescreen::SBApplication*>(front.get());
    script::HostState host;
    host.time = loop_.now() - startTime_;
    host.interfaceOrientation = static_cast<int>(homeScreen_.interfaceOrientation());
    host.deviceOrientation = toolkit::UIDevice::currentDevice().orientation();
    host.frontmost = application ? application->bundleIdentifier() : "";
    host.locked = homeScreen_.isLocked();
    host.displayOn = homeScreen_.isDisplayOn();
    host.keyboard = homeScreen_.visibleKeyboardFrame();
    return script::writeJson(script::describeState(host, notifications_.notifications()));
}

} // namespace session
