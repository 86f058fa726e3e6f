#include "hosts/desktop/DesktopEntries.h"
#include "tests/desktop/DesktopFilesTest.h"

#include <gmock/gmock.h>

#include <chrono>

#include <glib.h>
#include <sys/stat.h>

namespace desktop {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// Sets a variable as long as it stands.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        if (const char* before = g_getenv(name))
            before_ = before;
        g_setenv(name, value, TRUE);
    }
    ~EnvironmentVariable() {
        if (before_)
            g_setenv(name_, before_->c_str(), TRUE);
        else
            g_unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> before_;
};

class DesktopEntriesTest : public DesktopFilesTest {
protected:
    std::vector<std::string> listed() const {
        std::vector<std::string> identifiers;
        for (const auto& entry : entries_.listed())
            identifiers.push_back(entry.identifier);
        return identifiers;
    }
    std::string name(const std::string& identifier) const {
        const auto entry = entries_.find(identifier);
        return entry ? entry->name : "(none)";
    }
    std::string byWindow(const std::string& window) const {
        const auto entry = entries_.findByWindow(window);
        return entry ? entry->identifier : "(none)";
    }
    DesktopEntries entries_{directories()};
};

TEST_F(DesktopEntriesTest, ListsWhatTheDesktopOffersInTheOrderOfIdentifiers) {
    write("machine", "org.example.Paint.desktop", entry("Paint"));
    write("own", "org.example.Game.desktop", entry("Game"));
    write("machine", "mimeinfo.cache", entry("no entry"));
    write("machine", "org.example.Link.desktop", "[Desktop Entry]\nType=Link\nName=A link\nURL=file:///\n");
    EXPECT_THAT(listed(), ElementsAre("org.example.Game", "org.example.Paint"));
}

TEST_F(DesktopEntriesTest, LeavesOutWhatTheDesktopDoesNotOffer) {
    write("machine", "hidden.desktop", entry("Hidden", "Hidden=true\n"));
    write("machine", "helper.desktop", entry("Helper", "NoDisplay=true\n"));
    write("machine", "other.desktop", entry("Other", "OnlyShowIn=Somewhere-Else;\n"));
    write("machine", "gone.desktop", entry("Gone", "TryExec=/nowhere/at/all\n"));
    write("machine", "shown.desktop", entry("Shown", "NotShowIn=Somewhere-Else;\n"));
    EXPECT_THAT(listed(), ElementsAre("shown"));
    EXPECT_EQ(name("helper"), "Helper") << "it has windows all the same";
    EXPECT_EQ(name("hidden"), "(none)");
}

TEST_F(DesktopEntriesTest, TheUsersOwnEntryStandsBeforeTheMachines) {
    write("machine", "editor.desktop", entry("Editor"));
    write("own", "editor.desktop", entry("My Editor"));
    write("machine", "player.desktop", entry("Player"));
    write("own", "player.desktop", entry("Player", "Hidden=true\n"));
    write("machine", "viewer.desktop", entry("Viewer"));
    fs::create_symlink("/dev/null", applications("own") / "viewer.desktop");
    EXPECT_THAT(listed(), ElementsAre("editor"));
    EXPECT_EQ(name("editor"), "My Editor");
    EXPECT_EQ(name("viewer"), "(none)");
}

TEST_F(DesktopEntriesTest, AFoldersNameIsPartOfTheIdentifier) {
    write("machine", "games/puzzles/mines.desktop", entry("Mines"));
    EXPECT_THAT(listed(), ElementsAre("games-puzzles-mines"));
    EXPECT_EQ(name("games-puzzles-mines"), "Mines");
    EXPECT_EQ(name("games/puzzles/mines"), "(none)");
    EXPECT_EQ(name("../machine/applications/games"), "(none)");
}

TEST_F(DesktopEntriesTest, NamesApplicationsInTheUsersLanguage) {
    write("machine", "paint.desktop", entry("Paint", "Name[de]=Malen\n"));
    EXPECT_EQ(name("paint"), "Paint");
    write("own", "paint.desktop", entry("Paint", "Name[de]=Malen\n"));
    const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8"), language("LANGUAGE", "de");
    EXPECT_EQ(name("paint"), "Malen");
}

TEST_F(DesktopEntriesTest, KnowsIconsByNameAndByPath) {
    write("machine", "named.desktop", entry("Named", "Icon=org.example.Icon\n"));
    write("machine", "file.desktop", entry("File", "Icon=/usr/share/pixmaps/file.png\n"));
    write("machine", "ending.desktop", entry("Ending", "Icon=ending.png\n"));
    write("machine", "none.desktop", entry("None"));
    EXPECT_EQ(entries_.find("named")->icon, "org.example.Icon");
    EXPECT_EQ(entries_.find("file")->icon, "/usr/share/pixmaps/file.png");
    EXPECT_EQ(entries_.find("ending")->icon, "ending");
    EXPECT_EQ(entries_.find("none")->icon, "");
}

TEST_F(DesktopEntriesTest, FindsAWindowsApplicationByItsIdentifier) {
    write("machine", "org.example.Editor.desktop", entry("Editor"));
    EXPECT_EQ(byWindow("org.example.Editor"), "org.example.Editor");
    EXPECT_EQ(byWindow("org.example.editor"), "org.example.Editor");
    EXPECT_EQ(byWindow("org.example.Editor.desktop"), "org.example.Editor");
    EXPECT_EQ(byWindow("org.example"), "(none)");
    EXPECT_EQ(byWindow(".desktop"), "(none)");
}

TEST_F(DesktopEntriesTest, FindsAWindowsApplicationByTheNameThatItsEntryGivesItsWindows) {
    write("machine", "com.example.code.desktop", entry("Code", "StartupWMClass=Code\n"));
    write("machine", "a-helper.desktop", entry("Helper", "NoDisplay=true\nStartupWMClass=Code\n"));
    write("machine", "z-helper.desktop", entry("Helper", "NoDisplay=true\nStartupWMClass=Code\n"));
    EXPECT_EQ(byWindow("Code"), "com.example.code");
    EXPECT_EQ(byWindow("code"), "com.example.code");
    // What is called exactly so comes first.
    write("machine", "code.desktop", entry("Another Code"));
    EXPECT_EQ(byWindow("code"), "code");
}

TEST_F(DesktopEntriesTest, FollowsWhatIsInstalledChangedAndRemoved) {
    EXPECT_THAT(listed(), IsEmpty());
    write("own", "editor.desktop", entry("Editor"));
    EXPECT_EQ(name("editor"), "Editor");
    write("own", "editor.desktop", entry("Another Editor"));
    EXPECT_EQ(name("editor"), "Another Editor");
    // The same length at another time.
    write("own", "editor.desktop", entry("Changed Editor"));
    EXPECT_EQ(name("editor"), "Changed Editor");
    write("own", "editor.desktop", entry("Renamed Editor"));
    fs::last_write_time(applications("own") / "editor.desktop",
                        fs::file_time_type::clock::now() + std::chrono::seconds(2));
    EXPECT_EQ(name("editor"), "Renamed Editor");
    fs::remove(applications("own") / "editor.desktop");
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_EQ(name("editor"), "(none)");
}

TEST_F(DesktopEntriesTest, LinksThatLeadRoundInCirclesAreFollowedOnce) {
    write("machine", "editor.desktop", entry("Editor"));
    const auto folder = applications("machine");
    for (const char* link : {"a", "b", "c"})
        fs::create_directory_symlink(folder, folder / link);
    fs::create_directory_symlink("../..", folder / "up");
    fs::create_symlink("self.desktop", folder / "self.desktop");
    EXPECT_EQ(name("editor"), "Editor");
    const auto all = listed();
    EXPECT_EQ(std::count(all.begin(), all.end(), "editor"), 1);
}

TEST_F(DesktopEntriesTest, EntriesThatAreNoneAreLeftOut) {
    write("machine", "empty.desktop", "");
    write("machine", "garbage.desktop", std::string("\0\xFF\xFE[Desktop Entry\nName", 22));
    write("machine", "binary.desktop", std::string(100'000, '\xFF'));
    write("machine", "bad\xFF.desktop", entry("Bad"));
    write("machine", "two\nlines.desktop", entry("Lines"));
    write("machine", ".desktop", entry("No name"));
    fs::create_directories(applications("machine") / "folder.desktop");
    ASSERT_EQ(mkfifo((applications("machine") / "pipe.desktop").c_str(), 0600), 0);
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(DesktopEntriesTest, AnApplicationWhoseNameCannotBeReadHasOneAllTheSame) {
    write("machine", "nameless.desktop", "[Desktop Entry]\nType=Application\nExec=true\n");
    write("machine", "no-text.desktop", entry("\xFF\xFE"));
    EXPECT_THAT(listed(), ElementsAre("nameless", "no-text"));
    for (const auto& entry : entries_.listed())
        EXPECT_TRUE(!entry.name.empty() && g_utf8_validate(entry.name.c_str(), -1, nullptr));
}

TEST_F(DesktopEntriesTest, AHugeFileIsNotRead) {
    write("machine", "huge.desktop", entry("Huge"));
    fs::resize_file(applications("machine") / "huge.desktop", std::uintmax_t(64) << 30);
    write("machine", "editor.desktop", entry("Editor"));
    EXPECT_THAT(listed(), ElementsAre("editor"));
}

TEST_F(DesktopEntriesTest, MissingDirectoriesHoldNothing) {
    EXPECT_THAT(DesktopEntries({"/nowhere/at/all", "", "relative"}).listed(), IsEmpty());
}

} // namespace
} // namespace desktop
