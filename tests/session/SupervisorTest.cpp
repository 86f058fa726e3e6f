// What becomes of a session host that crashes.
#include "tests/session/SessionTest.h"

#include <chrono>
#include <csignal>
#include <fstream>

namespace tests {

namespace {

/// The process that the supervisor watches, 0 when there is none.
int childOf(int process) {
    const std::string name = std::to_string(process);
    std::ifstream stream("/proc/" + name + "/task/" + name + "/children");
    int child = 0;
    stream >> child;
    return child;
}

} // namespace

using SessionSupervisor = SessionTest;

TEST_F(SessionSupervisor, BringsTheHostBackWithinASecond) {
    startCompositor();
    startHost({});
    const int crashed = childOf(hostProcess());
    ASSERT_GT(crashed, 0);
    const auto begin = std::chrono::steady_clock::now();
    kill(crashed, SIGSEGV);
    ASSERT_TRUE(eventually([&] {
        return childOf(hostProcess()) > 0 && childOf(hostProcess()) != crashed && !state().is_null();
    }));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    EXPECT_TRUE(request("Show", "right"));
}

TEST_F(SessionSupervisor, StaysDownAfterThreeCrashesInAMinute) {
    startCompositor();
    startHost({});
    int last = 0;
    for (int crashes = 0; crashes < 3; ++crashes) {
        int child = 0;
        ASSERT_TRUE(eventually([&] {
            child = childOf(hostProcess());
            return child > 0 && child != last;
        }));
        last = child;
        kill(child, SIGSEGV);
    }
    EXPECT_EQ(waitForHostsEnd(), 4);
}

TEST_F(SessionSupervisor, PassesAStopOn) {
    startCompositor();
    startHost({});
    kill(hostProcess(), SIGTERM);
    EXPECT_EQ(waitForHostsEnd(), 0);
}

TEST_F(SessionSupervisor, SaysWhyItCannotStart) {
    const auto child =
        support::ChildProcess::run({VELA_BINARY_DIR "/bin/vela-session", "--root", root()},
                                   {"WAYLAND_DISPLAY=wayland-none", "XDG_RUNTIME_DIR=" + root()});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_NE(child.errors.find("no Wayland compositor"), std::string::npos) << child.errors;
}

} // namespace tests
