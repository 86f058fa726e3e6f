// What the session host does not do: nothing at rest, and no drawing for a panel that only moves.
#include "tests/session/SessionTest.h"

#include <fstream>
#include <thread>

namespace tests {

namespace {

/// Times that the process has been woken, all of its threads together.
long wakeUps(int process) {
    long sum = 0;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream status(task.path() / "status");
        for (std::string line; std::getline(status, line);)
            if (line.starts_with("voluntary_ctxt_switches:"))
                sum += std::stol(line.substr(line.find('\t')));
    }
    return sum;
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (auto place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++found;
    return found;
}

} // namespace

using SessionCost = SessionTest;

TEST_F(SessionCost, AtRestItWakesForTheCycleAlone) {
    start();
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const long before = wakeUps(hostProcess());
    std::this_thread::sleep_for(std::chrono::seconds(4));
    // Twice a second, and a little for a machine that is busy with something else.
    EXPECT_LE(wakeUps(hostProcess()) - before, 4 * 2 + 4);
}

TEST_F(SessionCost, AtRestItSaysNothingToTheCompositor) {
    startCompositor();
    startHost({"--no-supervisor"}, HostLog::Protocol);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const auto before = log().size();
    std::this_thread::sleep_for(std::chrono::seconds(2));
    EXPECT_EQ(log().substr(before), "");
}

TEST_F(SessionCost, AtRestNoSurfaceButTheStripsIsThere) {
    startCompositor();
    startHost({"--no-supervisor"}, HostLog::Protocol);
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    ASSERT_TRUE(request("Dismiss"));
    const auto surfaces = [&] {
        const std::string said = log();
        std::size_t gone = 0;
        for (auto place = said.find("-> wl_surface@"); place != std::string::npos;
             place = said.find("-> wl_surface@", place + 1))
            gone += said.substr(place, said.find('\n', place) - place).ends_with(".destroy()");
        return count(said, "create_surface(") - gone;
    };
    EXPECT_TRUE(eventually([&] { return surfaces() == 2; })) << surfaces();
}

TEST_F(SessionCost, AMovingPanelIsNotDrawnAgain) {
    startCompositor();
    startHost({"--no-supervisor"}, HostLog::Protocol);
    press(374, 300);
    dragTo(230, 300, 0.3);
    // The mark on the panel's edge turns for a moment when a drag begins.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const auto before = log().size();
    for (int x = 230; x > 130; x -= 10) {
        dragTo(x, 300, 1.0 / 60);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    const std::string said = log().substr(before);
    EXPECT_GE(count(said, "set_position("), 10u) << said;
    // The dimming's pixel alone changes with each step.
    EXPECT_LE(count(said, ".attach("), 12u) << said;
    EXPECT_EQ(count(said, "create_pool("), 0u) << said;
    release();
}

} // namespace tests
