#include "tests/session/SessionTest.h"

#include "tests/support/PhoneRun.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <iterator>

namespace tests {

namespace {

constexpr const char* service = "org.lanternhub.vela3";
constexpr const char* object = "/org/lanternhub/vela3";
constexpr double frame = 1000.0 / 60; // milliseconds
constexpr double screenScale = 2;     // of a screen with touch

/// The clock of the compositor's events.
double milliseconds() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

unsigned eventTimeOf(double time) {
    return static_cast<unsigned>(static_cast<unsigned long long>(time));
}

/// The fields of a window that a hand's doing decides.
nlohmann::json decided(const nlohmann::json& window) {
    nlohmann::json result;
    for (const char* field : {"class", "frame", "bounds", "hidden", "alpha", "level"})
        result[field] = window[field];
    if (window["properties"].contains("showed"))
        result["showed"] = window["properties"]["showed"];
    return result;
}

} // namespace

void SessionTest::startCompositor(HeadlessCompositor::Screen screen, HeadlessCompositor::Kind kind) {
    compositor_ = std::make_unique<HeadlessCompositor>(std::move(screen), kind);
    ASSERT_TRUE(compositor_->started());
    if (kind == HeadlessCompositor::Kind::Sway)
        client(); // a pointer that the host finds there; the other one lets nobody have one
}

void SessionTest::start(HeadlessCompositor::Screen screen, HeadlessCompositor::Kind kind, HostLog log) {
    startCompositor(std::move(screen), kind);
    startHost({"--no-supervisor"}, log);
}

void SessionTest::hideFromHost(std::set<std::string> interfaces) {
    door_ = std::make_unique<CompositorDoor>(compositor_->socket(), std::move(interfaces));
}

void SessionTest::startHost(const std::vector<std::string>& arguments, HostLog log) {
    std::vector<std::string> command{VELA_BINARY_DIR "/bin/vela-session", "--root", root()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    auto environment = bus_.environment();
    for (const auto& variable : compositor_->environment())
        environment.push_back(variable);
    if (door_)
        environment.push_back(door_->environment());
    environment.push_back("XDG_SESSION_ID=" + loginSession_);
    environment.push_back(dataVariable());
    if (log == HostLog::Protocol)
        environment.push_back("WAYLAND_DEBUG=1");
    if (log != HostLog::None)
        command.insert(command.begin(), {"/bin/sh", "-c", "log=$1; shift; exec \"$@\" 2> \"$log\"", "sh",
                                         directory_.path() / "host.log"});
    host_ = std::make_unique<support::BackgroundProcess>(command, environment);
    ASSERT_TRUE(eventually([&] { return !state().is_null(); }));
}

std::string SessionTest::log() const {
    std::ifstream stream(directory_.path() / "host.log");
    return {std::istreambuf_iterator<char>(stream), {}};
}

TestClient& SessionTest::client() {
    if (!client_) {
        client_ = std::make_unique<TestClient>(compositor_->runtimeDirectory(), compositor_->display());
        client_->setScreen(screenWidth, screenHeight);
    }
    return *client_;
}

nlohmann::json SessionTest::state() {
    GVariant* answer = bus_.call(service, object, service, "DescribeState");
    if (!answer)
        return nullptr;
    const char* text = nullptr;
    g_variant_get(answer, "(&s)", &text);
    auto state = nlohmann::json::parse(text);
    g_variant_unref(answer);
    return state;
}

nlohmann::json SessionTest::productWindows(const nlohmann::json& state) {
    nlohmann::json result;
    for (const char* cls :
         {"darkingWindow", "leftController", "rightController", "leftWindowGrabber", "rightWindowGrabber"})
        result.push_back(decided(PhoneRun::window(state, cls)));
    return result;
}

nlohmann::json SessionTest::window(const std::string& cls) {
    const nlohmann::json all = state();
    if (all.is_null())
        return nullptr;
    for (const auto& window : all["windows"])
        if (window["class"] == cls)
            return window;
    throw std::runtime_error("no window of class " + cls);
}

std::string SessionTest::shown() {
    GVariant* answer = bus_.call(service, object, "org.freedesktop.DBus.Properties", "Get",
                                 g_variant_new("(ss)", service, "Shown"));
    if (!answer)
        return "(no answer)";
    GVariant* value = nullptr;
    g_variant_get(answer, "(v)", &value);
    std::string side = g_variant_get_string(value, nullptr);
    g_variant_unref(value);
    g_variant_unref(answer);
    return side;
}

bool SessionTest::request(const std::string& method, const std::string& side) {
    GVariant* arguments = side.empty() ? nullptr : g_variant_new("(s)", side.c_str());
    GVariant* answer = bus_.call(service, object, service, method, arguments);
    if (answer)
        g_variant_unref(answer);
    return answer != nullptr;
}

bool SessionTest::waitForShown(const std::string& side, std::chrono::seconds limit) {
    return eventually([&] { return shown() == side; }, {}, limit);
}

bool SessionTest::waitForRest(const std::string& side) {
    return eventually([&] {
        if (shown() != side)
            return false;
        const bool left = window("leftWindowGrabber")["properties"]["showed"],
                   right = window("rightWindowGrabber")["properties"]["showed"];
        return left == (side == "left") && right == (side == "right");
    });
}

void SessionTest::setPreference(const std::string& key, const std::string& type, const std::string& value) {
    const auto child = support::ChildProcess::run(
        {VELA_BINARY_DIR "/bin/vela-phone", "--root", root(), "--set", key, type, value});
    ASSERT_EQ(child.exitCode, 0) << child.errors;
}

void SessionTest::press(double x, double y) {
    // The pointer comes first, so that the compositor knows what lies beneath it.
    eventTime_ = milliseconds();
    client().moveTo(x, y, eventTimeOf(eventTime_));
    client().press(eventTimeOf(eventTime_));
    pointerX_ = x;
    pointerY_ = y;
}

void SessionTest::dragTo(double x, double y, double seconds) {
    const int steps = std::max(1, static_cast<int>(std::lround(seconds * 1000 / frame)));
    const double startX = pointerX_, startY = pointerY_, startTime = eventTime_;
    for (int i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        pointerX_ = startX + (x - startX) * part;
        pointerY_ = startY + (y - startY) * part;
        eventTime_ = startTime + seconds * 1000 * part;
        client().moveTo(pointerX_, pointerY_, eventTimeOf(eventTime_));
    }
}

void SessionTest::release() {
    client().release(eventTimeOf(eventTime_));
}

void SessionTest::tap(double x, double y) {
    press(x, y);
    release();
    client().serve();
}

void SessionTest::startMock(std::vector<std::string> arguments, const std::string& name) {
    arguments.insert(arguments.begin(), {"/usr/bin/python3", "-m", "dbusmock"});
    mocks_.push_back(std::make_unique<support::BackgroundProcess>(arguments, bus_.environment()));
    ASSERT_TRUE(eventually([&] { return bus_.has(name); }));
}

void SessionTest::take(GVariant* answer) {
    ASSERT_NE(answer, nullptr) << bus_.lastError();
    g_variant_unref(answer);
}

void SessionTest::putFinger(int finger, double x, double y) {
    if (fingers_.empty())
        eventTime_ = milliseconds();
    fingers_[finger] = {x, y};
    compositor_->parent().perform([&](ParentSeat& seat) {
        seat.down(finger, x * screenScale, y * screenScale, eventTimeOf(eventTime_));
    });
}

void SessionTest::moveFinger(int finger, double x, double y, double seconds) {
    const int steps = std::max(1, static_cast<int>(std::lround(seconds * 1000 / frame)));
    const double startTime = eventTime_;
    const auto [startX, startY] = fingers_.at(finger);
    for (int i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        fingers_[finger] = {startX + (x - startX) * part, startY + (y - startY) * part};
        eventTime_ = startTime + seconds * 1000 * part;
        compositor_->parent().perform([&](ParentSeat& seat) {
            seat.motion(finger, fingers_[finger].first * screenScale, fingers_[finger].second * screenScale,
                        eventTimeOf(eventTime_));
        });
    }
}

void SessionTest::liftFinger(int finger) {
    fingers_.erase(finger);
    compositor_->parent().perform([&](ParentSeat& seat) { seat.up(finger, eventTimeOf(eventTime_)); });
}

void SessionTest::touchTap(double x, double y) {
    putFinger(0, x, y);
    liftFinger(0);
}

void SessionTest::strike(unsigned key) {
    client().pressKey(key);
    client().releaseKey(key);
}

std::string SessionTest::pixel(int x, int y) {
    const auto file = directory_.path() / "screen.png";
    compositor_->takePicture(file);
    const std::string place = std::to_string(x) + "," + std::to_string(y);
    const auto child = support::ChildProcess::run(
        {"/usr/bin/env", "convert", file, "-format", "%[hex:p{" + place + "}]", "info:"});
    return std::string("#").append(child.output, 0, 6);
}

} // namespace tests
