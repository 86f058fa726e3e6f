#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

#include <fstream>

using foundation::FileManager;
using foundation::PropertyList;
using vela::VelaSettingsManager;

namespace {

struct Preferences : tests::ProductTest {
    VelaSettingsManager& settings = VelaSettingsManager::sharedInstance();
    std::filesystem::path file() const { return root / (vela::paths::preferences + 1); }
    void writeRaw(const std::string& text) { std::ofstream(file(), std::ios::binary) << text; }
};

TEST_F(Preferences, SensibilityKnowsOnlyTheCapitalisedWords) {
    const std::pair<PropertyList, float> cases[] = {{"low", 15.0f},    {"Low", 5.0f},   {"Height", 30.0f},
                                                    {"height", 15.0f}, {"High", 15.0f}, {"normal", 15.0f},
                                                    {5, 15.0f},        {true, 15.0f},   {"", 15.0f}};
    for (const auto& [value, width] : cases) {
        preferences({{"Sensibility", value}});
        EXPECT_EQ(settings.sensibilityOfVelaGrabber(), width);
    }
    preferences({});
    EXPECT_EQ(settings.sensibilityOfVelaGrabber(), 15.0f);
}

TEST_F(Preferences, GrabberHeightIsWhatIsStoredOrNil) {
    preferences({{"Grabber height", "half_top"}});
    EXPECT_EQ(settings.grabberHeight(), PropertyList("half_top"));
    preferences({});
    EXPECT_TRUE(settings.grabberHeight().isNil());
}

TEST_F(Preferences, SongsAreLoadedByArtistForAQueue) {
    preferences({{"Load songs with", "queue"}});
    EXPECT_EQ(settings.getTypeOfEntityToLoad(), PropertyList("artist"));
    preferences({{"Load songs with", "album"}});
    EXPECT_EQ(settings.getTypeOfEntityToLoad(), PropertyList("album"));
    preferences({{"Load songs with", "Queue"}});
    EXPECT_EQ(settings.getTypeOfEntityToLoad(), PropertyList("Queue"));
    preferences({});
    EXPECT_TRUE(settings.getTypeOfEntityToLoad().isNil());
}

TEST_F(Preferences, TheLockScreenIsAccessibleUnlessItsSwitchIsOn) {
    preferences({});
    EXPECT_TRUE(settings.isVelaAccessibleFromLockScreen());
    preferences({{"Lockscreen", true}});
    EXPECT_FALSE(settings.isVelaAccessibleFromLockScreen());
    preferences({{"Lockscreen", false}});
    EXPECT_TRUE(settings.isVelaAccessibleFromLockScreen());
}

TEST_F(Preferences, SwitchesAreOffWhenAbsent) {
    preferences({});
    EXPECT_FALSE(settings.isLeftControllerDisabled());
    EXPECT_FALSE(settings.isChevronsHidden());
    preferences({{"Disable Left Controller", true}, {"Alternative chevrons", 1}});
    EXPECT_TRUE(settings.isLeftControllerDisabled());
    EXPECT_TRUE(settings.isChevronsHidden());
}

TEST_F(Preferences, ValuesOfWrongTypesAreConverted) {
    preferences({{"Disable Left Controller", "1"},
                 {"Alternative chevrons", "no"},
                 {"Lockscreen", PropertyList::Array{}}});
    EXPECT_TRUE(settings.isLeftControllerDisabled());
    EXPECT_FALSE(settings.isChevronsHidden());
    EXPECT_TRUE(settings.isVelaAccessibleFromLockScreen());
    preferences({{"Disable Left Controller", "YES"}, {"Alternative chevrons", 0.5}});
    EXPECT_TRUE(settings.isLeftControllerDisabled());
    EXPECT_TRUE(settings.isChevronsHidden());
}

TEST_F(Preferences, TheTutorialIsShownOnceAndTheRestOfTheFileIsKept) {
    preferences({{"Enable", true}, {"Blur", "auto"}});
    EXPECT_TRUE(settings.canShowTutorial());
    EXPECT_FALSE(settings.canShowTutorial());
    const auto file = FileManager::shared().readDictionary(vela::paths::preferences);
    ASSERT_TRUE(file);
    EXPECT_EQ(*file, (PropertyList::Dictionary{{"Enable", true}, {"Blur", "auto"}, {"tutorial", true}}));
    preference("tutorial", {});
    EXPECT_TRUE(settings.canShowTutorial());
}

TEST_F(Preferences, SettingAValueInAMissingFileMakesTheFile) {
    settings.setPreference("dark", "Blur");
    EXPECT_EQ(FileManager::shared().readDictionary(vela::paths::preferences),
              (PropertyList::Dictionary{{"Blur", "dark"}}));
}

TEST_F(Preferences, SettingAValueKeepsWhatAnotherProcessHasWrittenMeanwhile) {
    preferences({{"Enable", true}});
    EXPECT_EQ(settings.getPreferenceForKey("Enable"), PropertyList(true));
    preferences({{"Enable", false}, {"Blur", "light"}});
    settings.setPreference(0.7, "left_size_portrait");
    EXPECT_EQ(settings.getPreferenceForKey("Enable"), PropertyList(false));
    EXPECT_EQ(settings.getPreferenceForKey("Blur"), PropertyList("light"));
    EXPECT_EQ(settings.getPreferenceForKey("left_size_portrait").floatValue(), 0.7f);
}

TEST_F(Preferences, EveryReadGoesToTheFile) {
    preferences({{"Blur", "dark"}});
    EXPECT_EQ(settings.getPreferenceForKey("Blur"), PropertyList("dark"));
    preferences({{"Blur", "light"}});
    EXPECT_EQ(settings.getPreferenceForKey("Blur"), PropertyList("light"));
    std::filesystem::remove(file());
    EXPECT_TRUE(settings.getPreferenceForKey("Blur").isNil());
}

TEST_F(Preferences, AnUnreadableFileReadsAsAnEmptyOne) {
    for (const std::string text :
         {"", "not a property list", "<plist><dict><key>Enable</key><true/>",
          "<plist version=\"1.0\"><array><true/></array></plist>", "bplist00\xff\xff\xff"}) {
        writeRaw(text);
        EXPECT_TRUE(settings.getPreferenceForKey("Enable").isNil());
        EXPECT_EQ(settings.sensibilityOfVelaGrabber(), 15.0f);
        EXPECT_TRUE(settings.isVelaAccessibleFromLockScreen());
    }
    settings.setPreference(true, "Enable");
    EXPECT_EQ(FileManager::shared().readDictionary(vela::paths::preferences),
              (PropertyList::Dictionary{{"Enable", true}}));
}

TEST_F(Preferences, AnOversizedFileReadsAsAnEmptyOne) {
    preferences({{"Enable", true}, {"padding", std::string(2 * 1024 * 1024, 'x')}});
    EXPECT_TRUE(settings.getPreferenceForKey("Enable").isNil());
}

TEST_F(Preferences, AFailedWriteIsSilentAndLosesNothing) {
    preferences({{"Enable", true}});
    std::filesystem::rename(file().parent_path(), root / "elsewhere");
    settings.setPreference(false, "Enable");
    std::filesystem::rename(root / "elsewhere", file().parent_path());
    EXPECT_EQ(settings.getPreferenceForKey("Enable"), PropertyList(true));
}

} // namespace
