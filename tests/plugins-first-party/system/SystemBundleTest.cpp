#include "tests/plugins-first-party/FirstPartyTest.h"

namespace plugins {
namespace {

class SystemBundleTest : public FirstPartyTest {};

TEST_F(SystemBundleTest, ShowsThisMachine) {
    open("System");
    for (const char* title : {"Processor", "Memory", "Network", "Disk", "Battery", "Running for"})
        EXPECT_TRUE(shows(title)) << title;
    loop.advance(3);
    const auto all = texts();
    EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](const std::string& text) {
        return text.find(" free of ") != std::string::npos;
    }));
}

TEST_F(SystemBundleTest, MeasuresOnlyWhileItIsLookedAt) {
    open("System");
    EXPECT_EQ(TimerState::running(), 1);
    EXPECT_GT(framesDrawnWithin(3.5), 2);
    expectRestAfter("velaDismissed");
    send("appBecomeActive"); // opened again, but the panel is still away
    EXPECT_EQ(TimerState::running(), 0);
    send("velaInvoked");
    EXPECT_EQ(TimerState::running(), 1);
    expectRestAfter("appDidEnterBackground");
    send("velaInvoked");
    EXPECT_EQ(TimerState::running(), 0);
    send("appBecomeActive");
    EXPECT_EQ(TimerState::running(), 1);
    EXPECT_GT(framesDrawnWithin(3.5), 2);
}

TEST_F(SystemBundleTest, RunsOneTimerHoweverOftenItIsCalled) {
    open("System");
    for (int i = 0; i < 10; ++i) {
        send("appBecomeActive");
        send("velaInvoked");
    }
    EXPECT_EQ(TimerState::running(), 1);
}

} // namespace
} // namespace plugins
