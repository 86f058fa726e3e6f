// A test with the real session host in a real compositor, on a bus of its own.
#pragma once

#include "tests/session/CompositorDoor.h"
#include "tests/session/HeadlessCompositor.h"
#include "tests/session/Patience.h"
#include "tests/session/PrivateBus.h"
#include "tests/session/TestClient.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <map>
#include <memory>
#include <optional>

namespace tests {

class SessionTest : public testing::Test {
protected:
    static constexpr int screenWidth = 375; // points
    static constexpr int screenHeight = 667;

    enum class HostLog { None, Words, Protocol };
    /// Starts compositor and host; points as on the phone unless told otherwise.
    void start(HeadlessCompositor::Screen screen = {},
               HeadlessCompositor::Kind kind = HeadlessCompositor::Kind::Sway, HostLog log = HostLog::None);
    void startCompositor(HeadlessCompositor::Screen screen = {},
                         HeadlessCompositor::Kind kind = HeadlessCompositor::Kind::Sway);
    /// Keeps globals of the compositor from hosts that are started from now on; names of interfaces.
    void hideFromHost(std::set<std::string> interfaces);
    /// What such a host goes through.
    CompositorDoor& door() { return *door_; }
    /// Starts the host, in the compositor and on the bus that are there.
    void startHost(const std::vector<std::string>& arguments = {"--no-supervisor"},
                   HostLog log = HostLog::None);
    /// Of hosts that are started from now on; empty for one that belongs to no session.
    void setLoginSession(const std::string& identifier) { loginSession_ = identifier; }
    /// What the host has said, if that is asked for, and everything between it and the compositor.
    std::string log() const;
    void stopHost() { host_.reset(); }
    /// The exit code of a host that ends by itself.
    int waitForHostsEnd() { return host_->waitForEnd(); }
    void endClient() { client_.reset(); }
    bool hostIsRunning() const { return host_ && host_->isRunning(); }

    HeadlessCompositor& compositor() { return *compositor_; }
    PrivateBus& bus() { return bus_; }
    /// A pointer and a window.
    TestClient& client();

    /// What the host says of itself; null when it does not answer.
    nlohmann::json state();
    /// The fields of the product's windows that a hand's doing decides.
    static nlohmann::json productWindows(const nlohmann::json& state);
    /// Null as well when it does not answer; throws when there is no such window.
    nlohmann::json window(const std::string& cls);
    std::string shown();
    bool request(const std::string& method, const std::string& side = "");
    bool waitForShown(const std::string& side, std::chrono::seconds limit = patience);
    /// Until the panels' animation has ended.
    bool waitForRest(const std::string& side);
    /// As the settings application writes it; `type` is "bool", "number" or "string".
    void setPreference(const std::string& key, const std::string& type, const std::string& value);

    /// A drag of the pointer with 60 moves a second in event time, in no time in truth. Points.
    void press(double x, double y);
    void dragTo(double x, double y, double seconds);
    void release();
    void tap(double x, double y);

    /// Starts a mock of a service, with python-dbusmock's `arguments`, and waits until it has its name.
    void startMock(std::vector<std::string> arguments, const std::string& name);
    void endMocks() { mocks_.clear(); }
    /// Expects an answer, and lets go of it.
    void take(GVariant* answer);

    /// Real fingers, on a screen that has touch. Event time begins with each finger on an untouched screen
    /// and goes on as the moves say. Points.
    void putFinger(int finger, double x, double y);
    void moveFinger(int finger, double x, double y, double seconds);
    void liftFinger(int finger);
    void touchTap(double x, double y);
    /// A key pressed and let go of.
    void strike(unsigned key);

    /// A pixel of what the screen shows, in pixels: "#rrggbb".
    std::string pixel(int x, int y);
    std::string root() const { return directory_.path() / "root"; }
    /// Where the host, and whoever starts with its environment, has the user's applications.
    std::filesystem::path dataDirectory() const { return directory_.path() / "data"; }
    std::string dataVariable() const { return "XDG_DATA_HOME=" + dataDirectory().string(); }
    int hostProcess() const { return host_ ? host_->processId() : 0; }

private:
    TemporaryDirectory directory_;
    PrivateBus bus_;
    std::vector<std::unique_ptr<support::BackgroundProcess>> mocks_;
    std::unique_ptr<HeadlessCompositor> compositor_;
    std::unique_ptr<CompositorDoor> door_;
    std::unique_ptr<TestClient> client_;
    std::unique_ptr<support::BackgroundProcess> host_;
    std::string loginSession_ = "c1";
    double pointerX_ = 0, pointerY_ = 0;
    std::map<int, std::pair<double, double>> fingers_; // those on the screen, and where
    double eventTime_ = 0;                             // milliseconds
};

} // namespace tests
