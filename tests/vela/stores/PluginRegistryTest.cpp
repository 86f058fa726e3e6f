#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

#include <fstream>

using foundation::PropertyList;

namespace {

struct PluginRegistry : tests::ProductTest {
    PluginRegistry() { std::filesystem::create_directories(folder()); }
    std::filesystem::path folder() const { return root / (vela::paths::plugIns + 1); }
    void install(const std::string& name, PropertyList::Dictionary info) {
        std::filesystem::create_directories(folder() / name);
        ASSERT_TRUE(foundation::FileManager::shared().writeDictionaryAtomically(
            std::string(vela::paths::plugIns) + "/" + name + "/Info.plist", info));
    }
    std::vector<std::string> listed() {
        std::vector<std::string> identifiers;
        const auto apps = settings.getVelaApps();
        for (const auto& [identifier, info] : *apps)
            identifiers.push_back(identifier);
        return identifiers;
    }
    /// The names in the file system's order.
    std::vector<std::string> order() {
        return *foundation::FileManager::shared().contentsOfDirectory(vela::paths::plugIns);
    }
    static std::string pathOf(const std::string& name) {
        return std::string(vela::paths::plugIns) + "/" + name + "/";
    }

    vela::VelaSettingsManager& settings = vela::VelaSettingsManager::sharedInstance();
};

TEST_F(PluginRegistry, AnEmptyFolderHoldsNoPlugIns) {
    ASSERT_TRUE(settings.getVelaApps());
    EXPECT_TRUE(settings.getVelaApps()->empty());
    EXPECT_TRUE(foundation::loggedLines().empty());
}

TEST_F(PluginRegistry, AMissingFolderAnswersNothingWithOneLogLineEach) {
    std::filesystem::remove_all(folder());
    EXPECT_FALSE(settings.getVelaApps());
    EXPECT_EQ(foundation::loggedLines(), std::vector<std::string>{"Error while loading vela bundles"});
    EXPECT_FALSE(settings.getBundlePathByIdentifier("a"));
    EXPECT_EQ(foundation::loggedLines().size(), 2u);
}

TEST_F(PluginRegistry, AnswersTheWholeInformationOfEveryPlugIn) {
    const PropertyList::Dictionary clock{{"CFBundleIdentifier", "org.example.clock"},
                                         {"display_name", "Clock"},
                                         {"anything", PropertyList::Array{1, 2}}};
    install("Clock", clock);
    install("no suffix needed", {{"CFBundleIdentifier", "b"}});
    EXPECT_EQ(listed(), (std::vector<std::string>{"b", "org.example.clock"}));
    EXPECT_EQ(settings.getVelaApps()->at("org.example.clock"), clock);
    EXPECT_EQ(settings.getBundlePathByIdentifier("org.example.clock"), pathOf("Clock"));
    EXPECT_EQ(settings.getBundlePathByIdentifier("b"), pathOf("no suffix needed"));
}

TEST_F(PluginRegistry, IgnoresWhatIsNoBundle) {
    std::ofstream(folder() / "a file") << "text";
    std::filesystem::create_directory(folder() / "without information");
    std::filesystem::create_directories(folder() / "directory/Info.plist");
    std::filesystem::create_directory(folder() / "garbage");
    std::ofstream(folder() / "garbage/Info.plist") << "\x01\x02 not a property list";
    install("nameless", {{"display_name", "x"}});
    install("empty", {{"CFBundleIdentifier", ""}});
    install("number", {{"CFBundleIdentifier", 7}});
    EXPECT_EQ(listed(), std::vector<std::string>{});
    EXPECT_FALSE(settings.getBundlePathByIdentifier("x"));
    EXPECT_TRUE(foundation::loggedLines().empty());
}

TEST_F(PluginRegistry, HiddenOnesAreNotListedButFound) {
    const PropertyList hidden[] = {true, 1, 2.5, "1", "YES", "true"};
    int count = 0;
    for (const PropertyList& value : hidden) {
        const std::string identifier = "hidden" + std::to_string(++count);
        install(identifier, {{"CFBundleIdentifier", identifier}, {"hidden", value}});
        EXPECT_EQ(settings.getBundlePathByIdentifier(identifier), pathOf(identifier));
    }
    EXPECT_EQ(listed(), std::vector<std::string>{});
    install("shown", {{"CFBundleIdentifier", "shown"}, {"hidden", "no"}});
    install("also", {{"CFBundleIdentifier", "also"}, {"hidden", false}});
    EXPECT_EQ(listed(), (std::vector<std::string>{"also", "shown"}));
}

TEST_F(PluginRegistry, OfTwoWithOneIdentifierTheLastIsListedAndTheFirstIsFound) {
    install("one", {{"CFBundleIdentifier", "same"}, {"display_name", "one"}});
    install("two", {{"CFBundleIdentifier", "same"}, {"display_name", "two"}});
    const auto names = order();
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(settings.getVelaApps()->at("same").at("display_name"), PropertyList(names.back()));
    EXPECT_EQ(settings.getBundlePathByIdentifier("same"), pathOf(names.front()));
}

TEST_F(PluginRegistry, IdentifiersAreComparedToTheLetter) {
    install("one", {{"CFBundleIdentifier", "org.example.Clock"}});
    EXPECT_FALSE(settings.getBundlePathByIdentifier("org.example.clock"));
    EXPECT_FALSE(settings.getBundlePathByIdentifier(""));
}

TEST_F(PluginRegistry, APlugInThatComesOrGoesIsSeenByTheNextCall) {
    EXPECT_EQ(listed().size(), 0u);
    install("one", {{"CFBundleIdentifier", "one"}});
    EXPECT_EQ(listed().size(), 1u);
    std::filesystem::remove_all(folder() / "one");
    EXPECT_EQ(listed().size(), 0u);
}

TEST_F(PluginRegistry, NothingOutsideTheDeviceIsRead) {
    const auto outside =
        std::filesystem::temp_directory_path() / ("vela-outside-" + std::to_string(getpid()));
    std::filesystem::create_directories(outside);
    std::ofstream(outside / "Info.plist")
        << "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>spy</string></dict></plist>";
    std::filesystem::create_directory_symlink(outside, folder() / "linked");
    std::filesystem::create_directory(folder() / "half");
    std::filesystem::create_symlink(outside / "Info.plist", folder() / "half/Info.plist");
    EXPECT_EQ(listed(), std::vector<std::string>{});
    EXPECT_FALSE(settings.getBundlePathByIdentifier("spy"));
    std::filesystem::remove_all(outside);
}

TEST_F(PluginRegistry, StrangeNamesAreJustNames) {
    install("new\nline", {{"CFBundleIdentifier", "a"}});
    install("\xff\xfe broken", {{"CFBundleIdentifier", "b"}});
    install("..dots..", {{"CFBundleIdentifier", "c"}});
    EXPECT_EQ(listed(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(settings.getBundlePathByIdentifier("b"), pathOf("\xff\xfe broken"));
}

TEST_F(PluginRegistry, AnOversizedInformationFileIsSkipped) {
    install("large", {{"CFBundleIdentifier", "large"}, {"text", std::string(2 * 1024 * 1024, 'x')}});
    EXPECT_EQ(listed(), std::vector<std::string>{});
}

} // namespace
