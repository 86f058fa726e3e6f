// The page that keeps the product away from applications, on a desktop instead of the phone.
#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>

namespace settings {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

class DesktopApplicationsTest : public SettingsProgramTest {
protected:
    std::vector<std::string> environment() override {
        auto environment = SettingsProgramTest::environment();
        environment.insert(environment.end(),
                           {"XDG_DATA_HOME=" + path("data"), "XDG_CURRENT_DESKTOP=Example"});
        return environment;
    }
    void install(const std::string& identifier, const std::string& more = "") {
        write("applications/" + identifier + ".desktop",
              "[Desktop Entry]\nType=Application\nName=Name of " + identifier + "\nExec=true\n" + more);
    }
    void write(const std::string& file, const std::string& content) {
        const fs::path where = path("data/" + file);
        fs::create_directories(where.parent_path());
        std::ofstream(where) << content;
    }
    std::string list() { return shell({"--applications", "desktop", "--list"}).output; }
    /// How many pixels of exactly this colour the screen shows.
    int pixels(const std::string& color) {
        const auto child = support::ChildProcess::run(
            {"/bin/sh", "-c",
             "import -window root png:- | convert - -fill black +opaque '" + color +
                 "' -fill white -opaque '" + color + "' -format '%[fx:round(mean*w*h)]' info:"},
            environment());
        return std::atoi(child.output.c_str());
    }
};

TEST_F(DesktopApplicationsTest, ListsDesktopEntriesInThePhonesPlace) {
    install("org.example.Game", "Icon=game\n");
    install("org.example.Helper", "Icon=helper\nNoDisplay=true\n");
    install("org.example.Elsewhere", "Icon=elsewhere\nOnlyShowIn=Another;\n");
    install("org.example.Here", "Icon=here\nOnlyShowIn=Example;\n");
    const std::string listed = list();
    EXPECT_THAT(listed, testing::ContainsRegex("org\\.example\\.Game +\\(on, off\\)"));
    EXPECT_THAT(listed, HasSubstr("org.example.Here"));
    EXPECT_THAT(listed, Not(HasSubstr("org.example.Helper")));
    EXPECT_THAT(listed, Not(HasSubstr("org.example.Elsewhere")));
    EXPECT_THAT(listed, Not(HasSubstr("com.apple.")));
    EXPECT_THAT(shell({"--list"}).output, Not(HasSubstr("org.example.")));
}

TEST_F(DesktopApplicationsTest, LeavesOutWhatHasNoIconOfItsOwn) {
    install("org.example.Plain");
    install("org.example.Generic", "Icon=application-x-executable\n");
    install("org.example.Game", "Icon=game\n");
    EXPECT_THAT(list(), Not(HasSubstr("org.example.Plain")));
    EXPECT_THAT(list(), Not(HasSubstr("org.example.Generic")));
    EXPECT_THAT(list(), HasSubstr("org.example.Game"));
}

TEST_F(DesktopApplicationsTest, LeavesOutWhatIsCalledLikeASetting) {
    install("Enable", "Icon=game\n");
    install("Enabled", "Icon=game\n");
    EXPECT_THAT(list(), testing::ContainsRegex("Enabled +\\(on, off\\)"));
    start({"--applications", "desktop"});
    openPage({"Configuration", "Disable for apps"});
    EXPECT_TRUE(find("check box", "Enabled"));
    EXPECT_FALSE(has("check box", "Enable"));
}

TEST_F(DesktopApplicationsTest, SetsWhatTheSessionReads) {
    install("org.example.Game", "Icon=game\n");
    EXPECT_EQ(shell({"--applications=desktop", "--set", "org.example.Game", "on"}).exitCode, 0);
    EXPECT_EQ(preference("org.example.Game"), PropertyList(true));
    EXPECT_EQ(shell({"--set", "org.example.Game", "off"}).exitCode, 2) << "the phone has no such application";
    EXPECT_EQ(preference("org.example.Game"), PropertyList(true));
}

TEST_F(DesktopApplicationsTest, RefusesOtherPeoplesApplications) {
    const auto child = shell({"--applications", "neighbour", "--list"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_THAT(child.errors, HasSubstr("not of \"neighbour\""));
    EXPECT_EQ(shell({"--list", "--applications"}).exitCode, 2);
}

TEST_F(DesktopApplicationsTest, ShowsThePageWithTheThemesIcons) {
    const auto square = [](const std::string& color) {
        return "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='9' height='9' "
               "fill='" +
               color + "'/></svg>";
    };
    write("icons/hicolor/scalable/apps/drawing.svg", square("#ff00ff"));
    fs::create_directories(path("data/icons/hicolor/48x48/apps"));
    for (const char* picture : {"icons/hicolor/48x48/apps/picture.png", "elsewhere.png"})
        ASSERT_EQ(support::ChildProcess::run({"/usr/bin/env", "convert", "-size", "48x24",
                                              picture[0] == 'i' ? "xc:#00ff00" : "xc:#00ffff",
                                              path("data/") + picture})
                      .exitCode,
                  0);
    install("a.drawing", "Icon=drawing\n");
    install("a.picture", "Icon=picture\n");
    install("a.file", "Icon=" + path("data/elsewhere.png") + "\n");
    install("a.missing", "Icon=nowhere\n");
    write("damaged.png", "\x89PNG\r\n\x1a\n");
    install("a.damaged", "Icon=" + path("data/damaged.png") + "\n");
    start({"--applications", "desktop"});
    openPage({"Configuration", "Disable for apps"});
    for (const char* application : {"a.damaged", "a.drawing", "a.file", "a.missing", "a.picture"})
        EXPECT_TRUE(find("check box", application));
    // 29 points in the square, of which a picture that is wider than high leaves half free.
    constexpr int whole = 29 * 29;
    EXPECT_TRUE(waitUntil([&] { return pixels("#ff00ff") > whole * 8 / 10; })) << pixels("#ff00ff");
    EXPECT_TRUE(waitUntil([&] { return pixels("#00ff00") > whole * 4 / 10; })) << pixels("#00ff00");
    EXPECT_TRUE(waitUntil([&] { return pixels("#00ffff") > whole * 4 / 10; })) << pixels("#00ffff");
    EXPECT_LE(pixels("#00ff00"), whole * 6 / 10);
    ASSERT_TRUE(find("check box", "a.picture").activate());
    EXPECT_TRUE(waitForPreference("a.picture", true));
}

} // namespace
} // namespace settings
