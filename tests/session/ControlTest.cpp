// What other programs may ask of the session host.
#include "tests/session/SessionTest.h"

namespace tests {

using SessionControl = SessionTest;

TEST_F(SessionControl, ShowsEachPanel) {
    start();
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(request("Show", "left"));
    EXPECT_TRUE(waitForRest("left"));
    EXPECT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionControl, TogglesAPanel) {
    start();
    EXPECT_TRUE(request("Toggle", "right"));
    EXPECT_TRUE(waitForRest("right"));
    EXPECT_TRUE(request("Toggle", "right"));
    EXPECT_TRUE(waitForRest(""));
}

TEST_F(SessionControl, RefusesASideThatThereIsNot) {
    start();
    EXPECT_FALSE(request("Show", "top"));
    EXPECT_NE(bus().lastError().find("left"), std::string::npos) << bus().lastError();
    EXPECT_EQ(shown(), "");
}

TEST_F(SessionControl, RefusesAPanelThatIsSwitchedOff) {
    start();
    setPreference("Enable", "bool", "false");
    ASSERT_TRUE(eventually([&] { return window("rightWindowGrabber")["userInteraction"] == false; }));
    EXPECT_FALSE(request("Show", "right"));
    EXPECT_NE(bus().lastError().find("switched off"), std::string::npos) << bus().lastError();
    EXPECT_EQ(shown(), "");
}

TEST_F(SessionControl, TheProgramItselfCallsThePanels) {
    start();
    const auto ask = [this](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), VELA_BINARY_DIR "/bin/vela-session");
        return support::ChildProcess::run(arguments, bus().environment());
    };
    EXPECT_EQ(ask({"--show", "right"}).exitCode, 0);
    EXPECT_TRUE(waitForRest("right"));
    EXPECT_EQ(ask({"--dismiss"}).exitCode, 0);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_EQ(nlohmann::json::parse(ask({"--state"}).output)["locked"], false);
    stopHost();
    const auto refused = ask({"--show", "right"});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.errors.find("no session host is running"), std::string::npos) << refused.errors;
}

TEST_F(SessionControl, AnnouncesWhatIsShown) {
    start();
    std::string monitored;
    int output = -1;
    const support::BackgroundProcess monitor(
        {"gdbus", "monitor", "--address", bus().address(), "--dest", "org.lanternhub.vela3"}, {}, &output);
    char line[4096];
    const auto read = [&] {
        const auto count = ::read(output, line, sizeof line);
        monitored.append(line, count > 0 ? static_cast<std::size_t>(count) : 0);
    };
    while (monitored.find("is owned by") == std::string::npos)
        read();
    ASSERT_TRUE(request("Show", "left"));
    while (monitored.find("'Shown': <'left'>") == std::string::npos)
        read();
    EXPECT_NE(monitored.find("'LeftShown': <true>"), std::string::npos) << monitored;
}

} // namespace tests
