// The real program, as a process of its own.
#include "hosts/phone/program/PreferencesFile.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/PropertyListCoding.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <fstream>
#include <thread>

namespace phone {
namespace {

namespace fs = std::filesystem;
using support::ChildProcess;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* program = VELA_BINARY_DIR "/bin/vela-phone";

std::string read(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

class ProgramTest : public testing::Test {
protected:
    ChildProcess run(std::vector<std::string> arguments, const std::vector<std::string>& environment = {}) {
        arguments.insert(arguments.begin(), program);
        return ChildProcess::run(std::move(arguments), environment);
    }
    /// Plays a script without a display on the root of this test.
    ChildProcess play(const std::string& text, std::vector<std::string> arguments = {}) {
        write(script(), text);
        for (const std::string& argument :
             {std::string("--headless"), std::string("--script"), script().string(), std::string("--out"),
              out().string(), std::string("--root"), root().string()})
            arguments.push_back(argument);
        return run(arguments);
    }
    nlohmann::json state(const std::string& name) { return nlohmann::json::parse(read(out() / name)); }
    std::vector<std::string> windowClasses(const std::string& name) {
        std::vector<std::string> classes;
        const nlohmann::json described = state(name);
        for (const auto& window : described["windows"])
            classes.push_back(window["class"]);
        return classes;
    }
    /// The preferences in the root, read as any other program would.
    foundation::PropertyList preferences() {
        const std::string bytes = read(root() / (PreferencesFile::path + 1));
        const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
        return foundation::decodePropertyList({data, bytes.size()}).value_or(foundation::PropertyList());
    }

    fs::path root() const { return directory_.path() / "root"; }
    fs::path out() const { return directory_.path() / "out"; }
    fs::path script() const { return directory_.path() / "test.phone"; }
    fs::path path(const std::string& name) const { return directory_.path() / name; }

private:
    tests::TemporaryDirectory directory_;
};

TEST_F(ProgramTest, ShowsHelpAndVersionOnStandardOutput) {
    const auto help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_THAT(help.output, StartsWith("Usage: vela-phone"));
    EXPECT_EQ(help.errors, "");
    const auto version = run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_THAT(version.output, testing::MatchesRegex("vela-phone [0-9.]+\n"));
}

TEST_F(ProgramTest, NamesEveryOptionThatItRefuses) {
    const std::vector<std::vector<std::string>> commandLines{
        {"--nonsense"},
        {"stray"},
        {"--script"},
        {"--headless"},
        {"--screen", "375"},
        {"--screen", "375x"},
        {"--screen", "375x667@"},
        {"--screen", "10x10"},
        {"--screen", "99999x667"},
        {"--screen", "375x667@9"},
        {"--screen", "-375x667"},
        {"--screen", "nanxnan"},
        {"--screen", "3000x3000@4"},
        {"--model", "Brick"},
        {"--system-version", "nine"},
        {"--system-version", "9..3"},
        {"--system-version", "9."},
        {"--root", ""},
        {"--set", "k"},
        {"--set", "k", "bool"},
        {"--set", "k", "bool", "perhaps"},
        {"--set", "", "bool", "true"},
        {"--set", "k", "bool", "true", "--headless"},
        {"--extension", "x", "--no-extension"},
    };
    for (const auto& commandLine : commandLines) {
        const auto child = run(commandLine);
        EXPECT_EQ(child.exitCode, 2) << commandLine[0] << " " << commandLine.back();
        EXPECT_THAT(child.errors, StartsWith("vela-phone: "));
        EXPECT_THAT(child.errors, HasSubstr("--help"));
        EXPECT_EQ(child.output, "");
    }
    EXPECT_THAT(run({"--nonsense"}).errors, HasSubstr("\"--nonsense\""));
}

TEST_F(ProgramTest, PlaysAScriptAndWritesPicturesAndStates) {
    const auto child = play("wait 1\nshot one.png\nstate one.json\n");
    EXPECT_EQ(child.exitCode, 0) << child.errors;
    EXPECT_THAT(read(out() / "one.png"), StartsWith("\x89PNG"));
    const auto one = state("one.json");
    EXPECT_EQ(one["time"], 1.0);
    EXPECT_EQ(one["screen"]["width"], 375.0);
    EXPECT_EQ(one["screen"]["height"], 667.0);
    EXPECT_EQ(one["screen"]["scale"], 2.0);
    EXPECT_EQ(one["frontmost"], "");
    EXPECT_EQ(one["locked"], false);
    EXPECT_EQ(one["display"], true);
    EXPECT_FALSE(one["windows"].empty());
}

TEST_F(ProgramTest, PlaysTheSameScriptToTheSamePictures) {
    const std::string text =
        "wait 1\ntouch down 374 300\ntouch move 200 300 over 0.2\nshot a.png\nstate a.json\n";
    ASSERT_EQ(play(text).exitCode, 0);
    const std::string picture = read(out() / "a.png"), described = read(out() / "a.json");
    fs::remove_all(root());
    ASSERT_EQ(play(text).exitCode, 0);
    EXPECT_EQ(read(out() / "a.png"), picture);
    EXPECT_EQ(read(out() / "a.json"), described);
}

TEST_F(ProgramTest, TakesScreenModelAndVersionFromItsOptions) {
    const auto child = play("state a.json\nrotate 3\nwait 1\nstate b.json\n",
                            {"--screen", "768x1024@1", "--model=iPad", "--system-version", "10.2.1"});
    ASSERT_EQ(child.exitCode, 0) << child.errors;
    EXPECT_EQ(state("a.json")["screen"]["width"], 768.0);
    EXPECT_EQ(state("a.json")["screen"]["scale"], 1.0);
    EXPECT_EQ(state("b.json")["screen"]["device"], 3);
    // A tablet's home screen rotates.
    EXPECT_EQ(state("b.json")["screen"]["interface"], 3);
    EXPECT_EQ(state("b.json")["screen"]["width"], 1024.0);
}

TEST_F(ProgramTest, OpensApplicationsTypesAndLocks) {
    const auto child =
        play("wait 1\nopen com.apple.mobilenotes\nwait 1\nstate a.json\nkeyboard show\nwait 1\n"
             "state b.json\npress home\nwait 1\nstate c.json\nlock\nwait 1\nstate d.json\nunlock\n"
             "wait 1\nstate e.json\n");
    ASSERT_EQ(child.exitCode, 0) << child.errors;
    EXPECT_EQ(state("a.json")["frontmost"], "com.apple.mobilenotes");
    EXPECT_EQ(state("a.json")["keyboard"][3], 0.0);
    EXPECT_GT(state("b.json")["keyboard"][3], 100.0);
    EXPECT_EQ(state("c.json")["frontmost"], "");
    EXPECT_EQ(state("d.json")["locked"], true);
    EXPECT_EQ(state("e.json")["locked"], false);
    EXPECT_EQ(state("e.json")["display"], true);
}

TEST_F(ProgramTest, NamesFileLineAndReasonOfAScriptError) {
    const auto malformed = play("wait 1\n\ntouch wave 1 2\n");
    EXPECT_EQ(malformed.exitCode, 2);
    EXPECT_THAT(malformed.errors, HasSubstr(script().string() + ":3: \"wave\" is none of down, move, up"));

    const auto impossible = play("wait 1\nopen no.such.application\nshot never.png\n");
    EXPECT_EQ(impossible.exitCode, 2);
    EXPECT_THAT(impossible.errors,
                HasSubstr(script().string() + ":2: there is no application \"no.such.application\""));
    EXPECT_FALSE(fs::exists(out() / "never.png"));
}

TEST_F(ProgramTest, SaysThatAScriptCannotBeRead) {
    const auto child = run({"--headless", "--script", path("none.phone")});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr(path("none.phone").string() + ": there is no such script"));
    EXPECT_EQ(run({"--headless", "--script", "/"}).exitCode, 2);
}

TEST_F(ProgramTest, SaysThatTheRootCannotBeWritten) {
    write(path("file"), "not a directory");
    const auto child = run({"--root", path("file") / "below", "--set", "k", "bool", "true"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("the device root " + (path("file") / "below").string()));

    // A file where the device's own directories should be.
    write(root() / "var", "a file");
    const auto blocked = play("wait 1\n");
    EXPECT_EQ(blocked.exitCode, 2);
    EXPECT_THAT(blocked.errors, HasSubstr(root().string() + " cannot be written"));
}

TEST_F(ProgramTest, SaysThatTheOutputDirectoryCannotBeWritten) {
    write(path("out"), "a file");
    const auto child = play("shot a.png\n");
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("the output directory " + out().string()));
}

TEST_F(ProgramTest, SaysThatAPictureCannotBeWritten) {
    fs::create_directories(out() / "a.png");
    const auto child = play("wait 0.1\nshot a.png\n");
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr(":2: " + (out() / "a.png").string() + " cannot be written"));
}

TEST_F(ProgramTest, StartsWithoutAnExtensionOnlyWhenAsked) {
    EXPECT_EQ(play("wait 1\nstate a.json\n", {"--no-extension"}).exitCode, 0);
    EXPECT_THAT(windowClasses("a.json"), testing::Not(testing::IsEmpty()));
    EXPECT_THAT(windowClasses("a.json"), testing::Not(testing::Contains("rightWindowGrabber")));

    const auto missing = play("wait 1\n", {"--extension", path("none.dylib")});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_THAT(missing.errors, HasSubstr("there is no extension " + path("none.dylib").string()));

    write(path("broken.dylib"), "no library at all");
    const auto broken = play("wait 1\n", {"--extension", path("broken.dylib")});
    EXPECT_EQ(broken.exitCode, 2);
    EXPECT_THAT(broken.errors, HasSubstr("the extension cannot be loaded"));
    EXPECT_THAT(broken.errors, HasSubstr("--no-extension"));
}

TEST_F(ProgramTest, LoadsTheExtensionBeforeTheHomeScreenLaunches) {
    ASSERT_EQ(play("wait 1\nstate a.json\n").exitCode, 0);
    EXPECT_THAT(windowClasses("a.json"),
                testing::IsSupersetOf({"rightWindowGrabber", "leftWindowGrabber", "darkingWindow"}));
}

TEST_F(ProgramTest, FillsANewRootFromTheResources) {
    ASSERT_EQ(play("wait 0.1\n", {"--no-extension"}).exitCode, 0);
    for (const auto& entry : fs::recursive_directory_iterator(VELA_SOURCE_DIR "/resources/device"))
        if (entry.is_regular_file()) {
            const auto target = root() / fs::relative(entry.path(), VELA_SOURCE_DIR "/resources/device");
            EXPECT_EQ(read(target), read(entry.path())) << target;
        }
    EXPECT_TRUE(fs::is_directory(root() / "var/mobile/Library/Preferences"));
    EXPECT_TRUE(fs::is_directory(root() / "var/mobile/Documents"));
}

constexpr const char* plugIns = "Library/Application Support/Vela/Plugins";

TEST_F(ProgramTest, BringsItsPlugInsToTheDeviceWholeOrNotAtAll) {
    write(root() / plugIns / "Clock.bundle/Info.plist", "the user's own");
    ASSERT_EQ(play("wait 0.1\n", {"--no-extension"}).exitCode, 0);
    for (const char* name : {"Calculator", "Calendar", "Notes", "System"}) {
        const fs::path bundle = root() / plugIns / (std::string(name) + ".bundle");
        for (const std::string& file : {std::string("Info.plist"), std::string("guide.txt"),
                                        std::string(name) + ".so", std::string("icon@3x.png")})
            EXPECT_TRUE(fs::is_regular_file(bundle / file)) << bundle / file;
    }
    EXPECT_EQ(read(root() / plugIns / "Clock.bundle/Info.plist"), "the user's own");
    EXPECT_FALSE(fs::exists(root() / plugIns / "Clock.bundle/Clock.so"));
}

TEST_F(ProgramTest, LeavesThePlugInsAwayWhenAsked) {
    ASSERT_EQ(play("wait 0.1\n", {"--no-extension", "--no-plugins"}).exitCode, 0);
    EXPECT_TRUE(fs::is_directory(root() / plugIns));
    EXPECT_TRUE(fs::is_empty(root() / plugIns));
}

TEST_F(ProgramTest, AddsToAnExistingRootOnlyWhatIsMissing) {
    const auto defaults = root() / (PreferencesFile::defaultsPath + 1);
    const auto artwork = root() / "Library/Application Support/Vela/default_artwork.png";
    write(defaults, "the user's own");
    write(root() / "Library/Application Support/Vela/Plugins/Mine.bundle/Info.plist", "mine");
    ASSERT_EQ(play("wait 0.1\n", {"--no-extension"}).exitCode, 0);
    EXPECT_EQ(read(defaults), "the user's own");
    EXPECT_EQ(read(root() / "Library/Application Support/Vela/Plugins/Mine.bundle/Info.plist"), "mine");
    EXPECT_TRUE(fs::exists(artwork));
}

TEST_F(ProgramTest, LeavesLinksInTheRootAlone) {
    write(path("outside/precious"), "precious");
    fs::create_directories(root() / "Library/Application Support/Vela");
    fs::create_symlink(path("outside/precious"), root() / (PreferencesFile::defaultsPath + 1));
    fs::create_directory_symlink(path("outside"), root() / "Library/PreferenceBundles");
    ASSERT_EQ(play("wait 0.1\n", {"--no-extension"}).exitCode, 0);
    EXPECT_EQ(read(path("outside/precious")), "precious");
    EXPECT_EQ(std::distance(fs::directory_iterator(path("outside")), fs::directory_iterator()), 1);
    EXPECT_TRUE(fs::is_symlink(root() / (PreferencesFile::defaultsPath + 1)));
}

TEST_F(ProgramTest, RemovesTheTemporaryRootOfAHeadlessRun) {
    write(script(), "wait 0.1\n");
    fs::create_directories(path("tmp"));
    const auto child = run({"--headless", "--script", script()}, {"TMPDIR=" + path("tmp").string()});
    EXPECT_EQ(child.exitCode, 0) << child.errors;
    EXPECT_TRUE(fs::is_empty(path("tmp")));

    write(script(), "open no.such\n");
    EXPECT_EQ(run({"--headless", "--script", script()}, {"TMPDIR=" + path("tmp").string()}).exitCode, 2);
    EXPECT_TRUE(fs::is_empty(path("tmp")));
}

TEST_F(ProgramTest, WritesPreferencesOfEveryType) {
    const std::string rootName = root();
    EXPECT_EQ(run({"--root", rootName, "--set", "Enable", "bool", "false"}).exitCode, 0);
    EXPECT_EQ(run({"--root", rootName, "--set", "left_size_portrait", "number", "0.7"}).exitCode, 0);
    EXPECT_EQ(run({"--root", rootName, "--set", "Grabber height", "string", "half_top"}).exitCode, 0);
    EXPECT_EQ(preferences()["Enable"], foundation::PropertyList(false));
    EXPECT_EQ(preferences()["left_size_portrait"], foundation::PropertyList(0.7));
    EXPECT_EQ(preferences()["Grabber height"], foundation::PropertyList("half_top"));
    EXPECT_EQ(run({"--root", rootName, "--set", "Enable", "remove", "--set", "b", "number", "2"}).exitCode,
              0);
    EXPECT_TRUE(preferences()["Enable"].isNil());
    EXPECT_EQ(preferences()["b"], foundation::PropertyList(2));
    EXPECT_EQ(preferences()["Grabber height"], foundation::PropertyList("half_top"));
}

TEST_F(ProgramTest, BeginsANewPreferencesFileWithTheDefaults) {
    ASSERT_EQ(run({"--root", root(), "--set", "Blur", "string", "dark"}).exitCode, 0);
    const std::string bytes = read(root() / (PreferencesFile::defaultsPath + 1));
    const auto defaults =
        foundation::decodePropertyList({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    ASSERT_TRUE(defaults && defaults->dictionary());
    for (const auto& [key, value] : *defaults->dictionary())
        if (key != "Blur") {
            EXPECT_EQ(preferences()[key], value) << key;
        }
    EXPECT_EQ(preferences()["Blur"], foundation::PropertyList("dark"));
}

TEST_F(ProgramTest, CountsADamagedPreferencesFileAsEmpty) {
    write(root() / (PreferencesFile::path + 1), "<plist><dict><key>Enab");
    EXPECT_EQ(run({"--root", root(), "--set", "Enable", "bool", "true"}).exitCode, 0);
    ASSERT_TRUE(preferences().dictionary());
    EXPECT_EQ(preferences().dictionary()->size(), 1u);
}

TEST_F(ProgramTest, SaysThatPreferencesCannotBeWrittenAndLeavesThem) {
    // A directory in the file's place cannot be replaced.
    write(root() / (PreferencesFile::path + 1) / "entry", "");
    const auto child = run({"--root", root(), "--set", "Enable", "bool", "true"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("cannot be written"));
    EXPECT_TRUE(fs::exists(root() / (PreferencesFile::path + 1) / "entry"));
}

TEST_F(ProgramTest, AppliesPreferencesOfAScriptAsTheSettingsApplicationWould) {
    ASSERT_EQ(play("wait 0.1\nset Enable bool false\nset \"Grabber height\" string \"half_top\"\nwait 0.1\n")
                  .exitCode,
              0);
    EXPECT_EQ(preferences()["Enable"], foundation::PropertyList(false));
    EXPECT_EQ(preferences()["Grabber height"], foundation::PropertyList("half_top"));
}

TEST_F(ProgramTest, KeepsThePreferencesWholeWhenItIsKilled) {
    ASSERT_EQ(run({"--root", root(), "--set", "before", "string", std::string(5000, 'x')}).exitCode, 0);
    for (int attempt = 0; attempt < 30; ++attempt) {
        std::vector<std::string> command{
            program, "--root", root(), "--set", "number", "number", std::to_string(attempt)};
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            std::vector<char*> arguments;
            for (auto& argument : command)
                arguments.push_back(argument.data());
            arguments.push_back(nullptr);
            execv(program, arguments.data());
            _exit(127);
        }
        // Every attempt is killed at another moment of its work.
        std::this_thread::sleep_for(std::chrono::milliseconds(attempt * 2));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        ASSERT_TRUE(preferences().dictionary()) << attempt;
        ASSERT_EQ(preferences()["before"], foundation::PropertyList(std::string(5000, 'x'))) << attempt;
    }
}

TEST_F(ProgramTest, SaysWhatToDoWithoutADisplay) {
    const auto child = run({"--root", root()}, {"DISPLAY", "WAYLAND_DISPLAY", "GDK_BACKEND=x11,wayland"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("there is no display"));
    EXPECT_THAT(child.errors, HasSubstr("--headless"));
    EXPECT_THAT(child.errors, HasSubstr("broadway"));
}

TEST_F(ProgramTest, NamesAnUnusableUserDataDirectory) {
    const auto child = run({"--set", "k", "bool", "true"}, {"XDG_DATA_HOME", "HOME"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("--root"));
}

TEST_F(ProgramTest, KeepsTheUsersDeviceBelowTheDataDirectory) {
    const auto child =
        run({"--set", "k", "bool", "true"}, {"XDG_DATA_HOME=" + path("data").string(), "HOME=/nonexistent"});
    EXPECT_EQ(child.exitCode, 0) << child.errors;
    EXPECT_TRUE(fs::exists(path("data") / "vela3/device" / (PreferencesFile::path + 1)));
}

} // namespace
} // namespace phone
