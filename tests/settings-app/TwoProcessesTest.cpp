// The settings and the phone, two real processes on one device: the preferences file is all that they share.
#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace settings {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class TwoProcessesTest : public SettingsProgramTest {
protected:
    /// The phone in a window of its own, playing a script.
    void startPhone(const std::string& script) {
        std::ofstream(path("test.phone")) << script;
        phone_ = std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{VELA_BINARY_DIR "/bin/vela-phone", "--root", root(), "--no-plugins",
                                     "--script", path("test.phone"), "--out", path("out")},
            desktop().environment());
        ASSERT_TRUE(waitUntil([&] { return fs::exists(path("out/ready.json")); }))
            << "the phone does not start";
    }
    bool isPhoneRunning() const { return phone_->isRunning(); }
    json state(const std::string& name) const {
        std::ifstream stream(path("out/" + name));
        return json::parse(stream, nullptr, false);
    }
    static json window(const json& described, const std::string& className) {
        for (const auto& candidate : described["windows"])
            if (candidate["class"] == className)
                return candidate;
        return nullptr;
    }

private:
    std::unique_ptr<support::BackgroundProcess> phone_;
};

/// A state every tenth of a second, for a while.
std::string manyStates(int count) {
    std::string script = "wait 1\nstate ready.json\n";
    for (int number = 0; number < count; ++number)
        script += "wait 0.1\nstate " + std::to_string(number) + ".json\n";
    return script;
}

TEST_F(TwoProcessesTest, ThePhoneFollowsASwitchWithinHalfASecond) {
    constexpr int stateCount = 200;
    start();
    startPhone(manyStates(stateCount));
    ASSERT_TRUE(find("check box", "Enable").activate());
    ASSERT_TRUE(waitForPreference("Enable", false));
    const auto written = fs::last_write_time(root() + preferencesFile);
    const auto isOff = [&](const json& described) {
        return !described.is_discarded() &&
               window(described, "rightWindowGrabber")["userInteraction"] == false;
    };
    int first = 0;
    ASSERT_TRUE(waitUntil([&] {
        while (fs::exists(path("out/" + std::to_string(first) + ".json")) &&
               !isOff(state(std::to_string(first) + ".json")))
            ++first;
        return isOff(state(std::to_string(first) + ".json"));
    }));
    EXPECT_FALSE(isOff(state("ready.json")));
    const std::chrono::duration<double> delay =
        fs::last_write_time(path("out/" + std::to_string(first) + ".json")) - written;
    // Half a second, the tenth between two states, and what writing a state takes.
    EXPECT_LE(delay.count(), 0.8);
}

TEST_F(TwoProcessesTest, TheIconOnThePhoneStartsTheSettings) {
    startPhone("wait 1\nstate ready.json\nwait 30\n");
    constexpr int screenX = 54, screenY = 167; // the screen's corner, behind bar and bezel
    constexpr int iconX = 324, iconY = 607;    // the last icon of the dock
    desktop().input(
        {"mousemove", std::to_string(screenX + iconX), std::to_string(screenY + iconY), "click", "1"});
    const Accessible settings = desktop().program("vela-settings");
    ASSERT_TRUE(settings);
    EXPECT_TRUE(waitUntil([&] { return static_cast<bool>(settings.find("check box", "Enable")); }));
    ASSERT_TRUE(settings.find("check box", "Enable").activate());
    EXPECT_TRUE(waitForPreference("Enable", false)) << "the settings are those of another device";
    EXPECT_TRUE(isPhoneRunning());
    ASSERT_TRUE(settings.find("push button", "Close").activate());
    EXPECT_TRUE(waitUntil([&] { return !desktop().isRunning("vela-settings"); }));
}

/// Seconds that the soak test takes; VELA_SOAK_SECONDS makes it longer.
double soakSeconds() {
    const char* seconds = std::getenv("VELA_SOAK_SECONDS");
    return seconds ? std::atof(seconds) : 4;
}

TEST_F(TwoProcessesTest, TheFileIsWholeAtEveryMomentWhileBothWrite) {
    start();
    openPage({"Configuration"});
    const Accessible slider = find("slider", "left_size_portrait");
    std::atomic<bool> over = false;
    std::atomic<int> writes = 0;
    std::thread other([&] {
        for (int round = 0; !over; ++round) {
            const auto child = support::ChildProcess::run(
                {VELA_BINARY_DIR "/bin/vela-phone", "--root", root(), "--no-plugins", "--set",
                 "written by the phone", "number", std::to_string(round)});
            writes += child.exitCode == 0;
        }
    });
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(soakSeconds());
    int reads = 0, step = 0;
    while (std::chrono::steady_clock::now() < end) {
        slider.setValue(0.55 + 0.001 * (++step % 400));
        const auto read = files().readDictionary(preferencesFile);
        ASSERT_TRUE(read) << "after " << reads << " reads";
        ASSERT_GE(read->size(), 14u) << "the file is no longer whole";
        ++reads;
    }
    over = true;
    other.join();
    EXPECT_GE(writes, 3);
    EXPECT_GE(reads, 20);
    slider.setValue(0.8125);
    EXPECT_TRUE(
        waitUntil([] { return std::abs(preference("left_size_portrait").doubleValue() - 0.8125) < 1e-6; }));
    EXPECT_TRUE(isRunning());
}

} // namespace
} // namespace settings
