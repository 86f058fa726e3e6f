// The applications of the session: as the settings list them, and as the host knows the one in front.
#include "tests/session/SessionTest.h"

#include <fstream>

namespace tests {

class SessionApplications : public SessionTest {
protected:
    void install(const std::string& identifier, const std::string& more = "") {
        std::filesystem::create_directories(dataDirectory() / "applications");
        std::ofstream(dataDirectory() / "applications" / (identifier + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=Name of " + identifier + "\nExec=true\nIcon=game\n" +
                   more;
    }
    /// As a user does on the settings' page.
    void setDisabled(const std::string& identifier, const std::string& value) {
        const auto child =
            support::ChildProcess::run({VELA_BINARY_DIR "/bin/vela-settings", "--applications", "desktop",
                                        "--root", root(), "--set", identifier, value},
                                       {dataVariable()});
        ASSERT_EQ(child.exitCode, 0) << child.errors;
    }
    bool waitForTouchable(bool touchable) {
        return eventually([&] { return window("rightWindowGrabber")["userInteraction"] == touchable; });
    }
    bool waitForFront(const std::string& identifier) {
        return eventually([&] { return state()["frontmost"] == identifier; });
    }
};

TEST_F(SessionApplications, TheSettingsKeepTheGrabbersAwayFromAnApplication) {
    install("org.example.Game");
    start();
    client().openWindow("org.example.game"); // as it likes to write itself
    ASSERT_TRUE(waitForFront("org.example.Game"));
    setDisabled("org.example.Game", "on");
    ASSERT_TRUE(waitForTouchable(false));
    tap(370, 300);
    EXPECT_TRUE(eventually([&] { return client().presses() == std::vector<std::string>{"370,300"}; }));
    EXPECT_FALSE(request("Show", "right"));
    setDisabled("org.example.Game", "off");
    EXPECT_TRUE(waitForTouchable(true));
    EXPECT_TRUE(request("Show", "right"));
}

TEST_F(SessionApplications, AnApplicationIsKnownByTheNameThatItsEntryGivesItsWindows) {
    install("com.example.code", "StartupWMClass=Code - Window\n");
    start();
    setDisabled("com.example.code", "on");
    client().openWindow("Code - Window");
    ASSERT_TRUE(waitForFront("com.example.code"));
    EXPECT_TRUE(waitForTouchable(false));
    client().closeWindow();
    EXPECT_TRUE(waitForTouchable(true));
}

TEST_F(SessionApplications, AnApplicationThatIsInstalledLaterIsKnown) {
    start();
    client().openWindow("Player");
    ASSERT_TRUE(waitForFront("Player"));
    client().closeWindow();
    ASSERT_TRUE(waitForFront(""));
    install("org.example.Player", "StartupWMClass=Player\n");
    client().openWindow("Player");
    EXPECT_TRUE(waitForFront("org.example.Player"));
}

} // namespace tests
