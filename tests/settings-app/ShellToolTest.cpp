#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>

namespace settings {
namespace {

using testing::HasSubstr;

class ShellToolTest : public SettingsProgramTest {
protected:
    void expectRefused(std::vector<std::string> arguments, const std::string& reason) {
        const auto before = dictionary(preferencesFile);
        const auto child = shell(arguments);
        EXPECT_EQ(child.exitCode, 2);
        EXPECT_EQ(child.output, "");
        EXPECT_THAT(child.errors, HasSubstr(reason));
        EXPECT_EQ(dictionary(preferencesFile), before);
    }
};

TEST_F(ShellToolTest, ListsEverySettingWithItsValueAndValues) {
    const auto child = shell({"--list"});
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_THAT(child.output, testing::ContainsRegex("Enable +on +\\(on, off\\)"));
    EXPECT_THAT(child.output,
                testing::ContainsRegex("left_size_portrait +0\\.[0-9]+ +\\(0\\.55 to 0\\.95\\)"));
    EXPECT_THAT(child.output, testing::ContainsRegex("Sensibility +normal +\\(height, normal, low\\)"));
    EXPECT_THAT(child.output, testing::ContainsRegex("com\\.apple\\.mobilenotes +\\(on, off\\)"));
    EXPECT_THAT(child.output, testing::Not(HasSubstr("WebViewService")));
}

TEST_F(ShellToolTest, ListsWithoutShowingTheTutorial) {
    setPreference("tutorial", false);
    EXPECT_EQ(shell({"--list"}).exitCode, 0);
    EXPECT_EQ(preference("tutorial"), PropertyList(false));
}

TEST_F(ShellToolTest, SetsSettingsOfEveryKind) {
    EXPECT_EQ(shell({"--set", "Enable", "off"}).exitCode, 0);
    EXPECT_EQ(preference("Enable"), PropertyList(false));
    EXPECT_EQ(shell({"--set", "right_size_portrait", "0.6"}).exitCode, 0);
    EXPECT_EQ(preference("right_size_portrait"), PropertyList(0.6));
    EXPECT_EQ(shell({"--set", "Grabber height", "half_bottom"}).exitCode, 0);
    EXPECT_EQ(preference("Grabber height"), PropertyList("half_bottom"));
    EXPECT_EQ(shell({"--set", "com.apple.Music", "yes"}).exitCode, 0);
    EXPECT_EQ(preference("com.apple.Music"), PropertyList(true));
}

TEST_F(ShellToolTest, GetsWhatHasBeenSet) {
    shell({"--set", "left_size_landscape", "0.35"});
    EXPECT_EQ(shell({"--get", "left_size_landscape"}).output, "0.35\n");
    EXPECT_EQ(shell({"--get", "Enable"}).output, "on\n");
    EXPECT_EQ(shell({"--get", "Load songs with"}).output, "artist\n");
    const auto absent = shell({"--get", "com.apple.Music"});
    EXPECT_EQ(absent.exitCode, 1);
    EXPECT_EQ(absent.output, "");
}

TEST_F(ShellToolTest, RefusesValuesOutsideAKeysRangeOrType) {
    expectRefused({"--set", "left_size_portrait", "0.5"}, "0.5 is not between 0.55 and 0.95");
    expectRefused({"--set", "left_size_portrait", "0.96"}, "0.96 is not between 0.55 and 0.95");
    expectRefused({"--set", "left_size_portrait", "wide"}, "wide");
    expectRefused({"--set", "left_size_portrait", "nan"}, "nan");
    expectRefused({"--set", "Enable", "perhaps"}, "perhaps");
    expectRefused({"--set", "Blur", "Dark"}, "\"Dark\" is none of dark, light, auto");
}

TEST_F(ShellToolTest, RefusesKeysThatNoPageEdits) {
    expectRefused({"--set", "tutorial", "on"}, "there is no setting \"tutorial\"");
    expectRefused({"--get", "Guide"}, "there is no setting \"Guide\"");
    expectRefused({"--set", "", "on"}, "there is no setting \"\"");
}

TEST_F(ShellToolTest, RefusesCommandLinesThatMakeNoSense) {
    expectRefused({"--frobnicate"}, "there is no option \"--frobnicate\"");
    expectRefused({"--set", "Enable"}, "--set lacks a VALUE");
    expectRefused({"--get"}, "--get lacks a KEY");
    expectRefused({"--list", "--get", "Enable"}, "at a time");
    expectRefused({"--list", "--root", ""}, "the path is empty");
    expectRefused({"--list", "--extension", "/nowhere/Vela3.dylib"}, "/nowhere/Vela3.dylib");
}

TEST_F(ShellToolTest, HelpsAndNamesItsVersion) {
    EXPECT_THAT(shell({"--help"}).output, HasSubstr("--set KEY VALUE"));
    EXPECT_THAT(shell({"--version"}).output, testing::StartsWith("vela-settings 3."));
}

TEST_F(ShellToolTest, ReadsACorruptedFileAsEmptyAndMendsIt) {
    std::ofstream(root() + preferencesFile) << "no property list";
    EXPECT_EQ(shell({"--get", "Enable"}).exitCode, 1);
    EXPECT_EQ(shell({"--set", "Enable", "on"}).exitCode, 0);
    EXPECT_EQ(preference("Enable"), PropertyList(true));
}

} // namespace
} // namespace settings
