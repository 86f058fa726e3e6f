// The phone itself, taken down by a plug-in: headless and in its window.
#include "tests/plugins/PluginTest.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/VirtualDisplay.h"

#include <chrono>
#include <sstream>
#include <thread>

namespace plugins {
namespace {

using support::ChildProcess;
using testing::HasSubstr;
using testing::Not;

class RestartTest : public PluginTest {
protected:
    RestartTest() {
        install("Faulty");
        PluginStorage storage("org.example.Faulty");
        storage.write("fault", "segv");
        storage.write("place", "method");
        writeFile(directory() / "wait.phone", "wait 1\n");
    }

    std::vector<std::string> phone(std::vector<std::string> more) const {
        std::vector<std::string> command{VELA_BINARY_DIR "/bin/vela-phone", "--root", root(), "--extension",
                                         VELA_BINARY_DIR "/lib/OpeningExtension.so"};
        command.insert(command.end(), more.begin(), more.end());
        return command;
    }
    ChildProcess playHeadless() const {
        return ChildProcess::run(
            phone({"--headless", "--script", directory() / "wait.phone", "--out", directory() / "out"}));
    }
    std::string root() const { return directory() / "root"; }
    std::string errors() const {
        std::ifstream stream(directory() / "errors");
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// Waits, with a limit, until the phone's standard error holds `text`.
    bool waitForError(const std::string& text) const {
        for (int attempt = 0; attempt < 600; ++attempt) {
            if (errors().find(text) != std::string::npos)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
};

TEST_F(RestartTest, AScriptEndsWithACodeOfItsOwnAndTheNextRunLeavesThePlugInOut) {
    const auto first = playHeadless();
    EXPECT_EQ(first.exitCode, 3) << first.errors;
    EXPECT_THAT(first.errors, HasSubstr("the plug-in org.example.Faulty crashed"));
    EXPECT_TRUE(isDisabled("org.example.Faulty"));

    const auto second = playHeadless();
    EXPECT_EQ(second.exitCode, 0) << second.errors;
    EXPECT_THAT(second.errors, HasSubstr("extension: not opened"));

    EXPECT_TRUE(enable("org.example.Faulty"));
    EXPECT_EQ(playHeadless().exitCode, 3);
}

TEST_F(RestartTest, ATemporaryDeviceIsRemovedAfterACrashToo) {
    // The plug-in is there already when the temporary device is made: the extension brings it.
    const auto temporary = directory() / "tmp";
    std::filesystem::create_directory(temporary);
    const std::vector<std::string> command{VELA_BINARY_DIR "/bin/vela-phone",
                                           "--headless",
                                           "--script",
                                           directory() / "wait.phone",
                                           "--out",
                                           directory() / "out",
                                           "--extension",
                                           VELA_BINARY_DIR "/lib/OpeningExtension.so"};
    const auto child =
        ChildProcess::run(command, {"TMPDIR=" + temporary.string(), "VELA_TEST_BRING_FROM=" + root()});
    EXPECT_EQ(child.exitCode, 3) << child.errors;
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
}

TEST_F(RestartTest, AnotherDirectoryIsNeverTakenForATemporaryDevice) {
    std::filesystem::create_directory(directory() / "precious");
    const auto child = ChildProcess::run({VELA_BINARY_DIR "/bin/vela-phone", "--headless", "--script",
                                          directory() / "wait.phone", "--out", directory() / "out",
                                          "--after-crash", directory() / "precious"});
    EXPECT_EQ(child.exitCode, 3);
    EXPECT_TRUE(std::filesystem::exists(directory() / "precious"));
}

TEST_F(RestartTest, TheWindowStartsAgainByItself) {
    const support::VirtualDisplay display;
    ASSERT_NE(display.name(), "") << "Xvfb is not installed";
    std::string command = "exec \"$@\" 2>" + (directory() / "errors").string();
    std::vector<std::string> words{"sh", "-c", command, "sh"};
    for (const auto& word : phone({}))
        words.push_back(word);
    support::BackgroundProcess window(words, {"DISPLAY=" + display.name(), "GDK_BACKEND=x11",
                                              "GSK_RENDERER=cairo", "HOME=" + directory().string()});
    ASSERT_TRUE(window.started());
    ASSERT_TRUE(waitForError("extension: not opened")) << errors();
    EXPECT_THAT(errors(), HasSubstr("the plug-in org.example.Faulty crashed and is left out from now on"));
    EXPECT_TRUE(isDisabled("org.example.Faulty"));
    EXPECT_TRUE(window.isRunning());
}

TEST_F(RestartTest, AHangingPlugInIsNamedWhileItHangs) {
    PluginStorage("org.example.Faulty").write("fault", "hang");
    const auto child = playHeadless();
    EXPECT_EQ(child.exitCode, 0);
    const auto named = child.errors.find("Plug-in org.example.Faulty has been in velaInvoked");
    ASSERT_NE(named, std::string::npos) << child.errors;
    EXPECT_LT(named, child.errors.find("extension: done"));
}

} // namespace
} // namespace plugins
