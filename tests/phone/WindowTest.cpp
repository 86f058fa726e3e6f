// The real window on a display of its own, with pointer and keyboard events as an X server makes them.
#include "tests/support/BackgroundProcess.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <fstream>
#include <thread>

#include <unistd.h>

namespace phone {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using support::ChildProcess;

/// Where the screen's top left corner lies on the display: behind the window's border and header bar, the
/// picture's margin and the phone's bezel. On this display the picture has its own size, one pixel a point.
constexpr int screenX = 54;
constexpr int screenY = 167;

class WindowTest : public testing::Test {
protected:
    void SetUp() override {
        int output = -1;
        server_ = std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0", "1280x1200x24", "-nolisten",
                                     "tcp"},
            std::vector<std::string>{}, &output);
        ASSERT_TRUE(server_->started()) << "Xvfb is not installed";
        std::string number;
        for (char c = 0; ::read(output, &c, 1) == 1 && c != '\n';)
            number += c;
        close(output);
        ASSERT_NE(number, "") << "Xvfb did not start";
        display_ = ":" + number;
    }

    std::unique_ptr<support::BackgroundProcess> start(const std::string& script,
                                                      std::vector<std::string> more = {}) {
        std::ofstream(directory_.path() / "test.phone") << script;
        std::vector<std::string> command{VELA_BINARY_DIR "/bin/vela-phone",
                                         "--root",
                                         path("root"),
                                         "--script",
                                         path("test.phone"),
                                         "--out",
                                         path("out")};
        command.insert(command.end(), more.begin(), more.end());
        return std::make_unique<support::BackgroundProcess>(
            std::move(command), std::vector<std::string>{"DISPLAY=" + display_, "GDK_BACKEND=x11",
                                                         "GSK_RENDERER=cairo", "HOME=" + path("home")});
    }
    void input(std::vector<std::string> words) {
        words.insert(words.begin(), {"/usr/bin/env", "xdotool"});
        ASSERT_EQ(ChildProcess::run(words, {"DISPLAY=" + display_}).exitCode, 0) << "xdotool failed";
    }
    void movePointer(double x, double y) {
        input({"mousemove", std::to_string(screenX + int(x)), std::to_string(screenY + int(y))});
    }
    void drag(double fromX, double toX, double y) {
        movePointer(fromX, y);
        input({"mousedown", "1"});
        constexpr int steps = 10;
        for (int step = 1; step <= steps; ++step)
            movePointer(fromX + (toX - fromX) * step / steps, y);
        input({"mouseup", "1"});
    }
    /// Waits, with a limit, until the script has written a state.
    bool waitForState(const std::string& name) {
        for (int attempt = 0; attempt < 600; ++attempt) {
            if (!state(name).is_discarded())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
    json state(const std::string& name) {
        std::ifstream stream(directory_.path() / "out" / name);
        return json::parse(stream, nullptr, false);
    }
    static json window(const json& described, const std::string& className) {
        for (const auto& candidate : described["windows"])
            if (candidate["class"] == className)
                return candidate;
        return nullptr;
    }
    std::string path(const std::string& name) const { return directory_.path() / name; }

private:
    tests::TemporaryDirectory directory_;
    std::unique_ptr<support::BackgroundProcess> server_;
    std::string display_;
};

TEST_F(WindowTest, PlaysAScriptInRealTimeAndExits) {
    const auto begin = std::chrono::steady_clock::now();
    auto phone = start("wait 0.5\ntouch down 374 300\ntouch move 60 300 over 0.3\ntouch up\nwait 0.7\n"
                       "state a.json\nshot a.png\n");
    ASSERT_TRUE(phone->started());
    EXPECT_EQ(phone->waitForEnd(), 0);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(elapsed.count(), 1.5);
    ASSERT_TRUE(waitForState("a.json"));
    const json panel = window(state("a.json"), "rightController");
    EXPECT_EQ(panel["hidden"], false);
    EXPECT_LT(panel["frame"][0], 100.0);
}

TEST_F(WindowTest, ExitsWithTheScriptsError) {
    auto phone = start("wait 0.2\nopen no.such\n");
    EXPECT_EQ(phone->waitForEnd(), 2);
}

TEST_F(WindowTest, BringsAPanelInUnderThePointer) {
    auto phone = start("wait 1\nstate ready.json\nwait 4\nstate after.json\n");
    ASSERT_TRUE(waitForState("ready.json"));
    EXPECT_EQ(window(state("ready.json"), "rightController")["hidden"], true);
    drag(369, 60, 300);
    ASSERT_TRUE(waitForState("after.json"));
    const json panel = window(state("after.json"), "rightController");
    EXPECT_EQ(panel["hidden"], false);
    EXPECT_LT(panel["frame"][0], 100.0);
    EXPECT_EQ(phone->waitForEnd(), 0);
}

TEST_F(WindowTest, OpensAnApplicationByAClickAndLeavesItByTheHomeButton) {
    auto phone = start("wait 1\nstate ready.json\nwait 3\nstate opened.json\nwait 3\nstate left.json\n");
    ASSERT_TRUE(waitForState("ready.json"));
    movePointer(143, 607); // the second icon of the dock
    input({"click", "1"});
    ASSERT_TRUE(waitForState("opened.json"));
    EXPECT_EQ(state("opened.json")["frontmost"], "com.apple.mobileslideshow");
    movePointer(187, 711); // the Home button, below the screen
    input({"click", "1"});
    ASSERT_TRUE(waitForState("left.json"));
    EXPECT_EQ(state("left.json")["frontmost"], "");
}

TEST_F(WindowTest, HearsShortcutsAndTyping) {
    auto phone = start("open com.apple.mobilenotes\nwait 1.5\nkeyboard show\ntap 180 300\nwait 0.5\n"
                       "state ready.json\nwait 4\nstate after.json\n");
    ASSERT_TRUE(waitForState("ready.json"));
    input({"type", "--delay", "30", "zanzibar"});
    input({"key", "BackSpace"});
    input({"key", "ctrl+Left"});
    ASSERT_TRUE(waitForState("after.json"));
    EXPECT_EQ(state("after.json")["screen"]["device"], 3);
    const std::string after = state("after.json").dump();
    EXPECT_THAT(after, testing::HasSubstr("zanziba"));
    EXPECT_THAT(after, testing::Not(testing::HasSubstr("zanzibar")));
}

TEST_F(WindowTest, QuitsByItsShortcut) {
    auto phone = start("wait 1\nstate ready.json\n", {"--keep-open"});
    ASSERT_TRUE(waitForState("ready.json"));
    input({"key", "ctrl+q"});
    EXPECT_EQ(phone->waitForEnd(), 0);
}

} // namespace
} // namespace phone
