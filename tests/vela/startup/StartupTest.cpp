#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/runtime/Class.h"
#include "vela/startup/HookTable.h"
#include "vela/startup/Startup.h"
#include "vela/stores/Paths.h"

#include <sys/wait.h>
#include <unistd.h>

using foundation::FileManager;
using foundation::PropertyList;

namespace {

/// Takes away what an earlier test of this process may have added to the host's classes.
void forgetAddedMethods() {
    for (const auto& hook : vela::hookTable())
        if (hook.kind == vela::HookKind::Added)
            runtime::Registry::shared().find(hook.className)->removeOwnMethod(hook.selector);
}

struct Startup : tests::ProductTest {
    FileManager& files = FileManager::shared();

    /// Starts the product in a process of its own, where no hook has been installed, and answers whether the
    /// host's classes were changed by it.
    static bool installsHooks(const std::string& version, const std::string& identifier) {
        const pid_t child = fork();
        if (child == 0) {
            forgetAddedMethods();
            auto& process = foundation::ProcessInfo::shared();
            process.systemVersion = version;
            process.mainBundleIdentifier = identifier;
            vela::start();
            const auto* cls = runtime::Registry::shared().find("SpringBoard");
            _exit(cls->hasOwnMethod("velaCycler") ? 42 : 43);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status) == 42;
    }
    /// As a process that is no home screen, which leaves the classes of this one alone.
    void startElsewhere() {
        foundation::ProcessInfo::shared().mainBundleIdentifier = "com.apple.preferences";
        vela::start();
    }
    static int yeahs() {
        const auto lines = foundation::loggedLines();
        return static_cast<int>(std::count(lines.begin(), lines.end(), "<Vela3>Yeah!"));
    }
};

TEST_F(Startup, TheFirstRunMakesBothDirectoriesAndSaysSoOnce) {
    startElsewhere();
    EXPECT_TRUE(files.directoryExists(vela::paths::data));
    EXPECT_TRUE(files.directoryExists(vela::paths::artworks));
    EXPECT_EQ(yeahs(), 1);
    startElsewhere();
    EXPECT_EQ(yeahs(), 1);
}

TEST_F(Startup, AnArtworkDirectoryIsNotMadeInAnOldDataDirectory) {
    files.createDirectory(vela::paths::data);
    startElsewhere();
    EXPECT_FALSE(files.directoryExists(vela::paths::artworks));
    EXPECT_EQ(yeahs(), 0);
}

TEST_F(Startup, NoParentDirectoryIsMade) {
    std::filesystem::remove(root / "var/mobile/Documents");
    startElsewhere();
    EXPECT_FALSE(files.directoryExists("/var/mobile/Documents"));
    EXPECT_EQ(yeahs(), 0);
}

TEST_F(Startup, MissingPreferencesAreSeededFromTheDefaults) {
    const PropertyList::Dictionary defaults{{"Enable", true}, {"right_size_portrait", 0.85}};
    files.writeDictionaryAtomically(vela::paths::defaults, defaults);
    startElsewhere();
    EXPECT_EQ(files.readDictionary(vela::paths::preferences), defaults);
}

TEST_F(Startup, ExistingPreferencesAreLeftAsTheyAreEvenWithKeysMissing) {
    files.writeDictionaryAtomically(vela::paths::defaults, {{"Enable", true}, {"Blur", "auto"}});
    preferences({{"Enable", false}});
    startElsewhere();
    EXPECT_EQ(files.readDictionary(vela::paths::preferences), (PropertyList::Dictionary{{"Enable", false}}));
}

TEST_F(Startup, DefaultsThatAreMissingOrDamagedSeedNothing) {
    startElsewhere();
    EXPECT_FALSE(files.fileExists(vela::paths::preferences));
    const std::string text = "<plist><dict><key>Enable";
    files.writeAtomically(vela::paths::defaults,
                          {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    startElsewhere();
    EXPECT_FALSE(files.fileExists(vela::paths::preferences));
}

TEST_F(Startup, TheDefaultsOfAFreshInstallationEnableTheProductWithinTheSlidersRanges) {
    const auto bytes =
        std::filesystem::path(VELA_SOURCE_DIR) / "resources/device/Library/Application Support/Vela";
    files.setDeviceRoot(bytes);
    const auto defaults = files.readDictionary("/default.plist");
    files.setDeviceRoot(root);
    ASSERT_TRUE(defaults);
    EXPECT_TRUE(defaults->at("Enable").boolValue());
    for (const char* key : {"left_size_portrait", "right_size_portrait"}) {
        EXPECT_GE(defaults->at(key).floatValue(), 0.55f);
        EXPECT_LE(defaults->at(key).floatValue(), 0.95f);
    }
    for (const char* key : {"left_size_landscape", "right_size_landscape"}) {
        EXPECT_GE(defaults->at(key).floatValue(), 0.3f);
        EXPECT_LE(defaults->at(key).floatValue(), 0.95f);
    }
}

TEST_F(Startup, AnOldSystemGetsItsDirectoriesAndPreferencesAllTheSame) {
    const PropertyList::Dictionary defaults{{"Enable", true}};
    files.writeDictionaryAtomically(vela::paths::defaults, defaults);
    foundation::ProcessInfo::shared().systemVersion = "8.4";
    vela::start();
    EXPECT_TRUE(files.directoryExists(vela::paths::artworks));
    EXPECT_EQ(files.readDictionary(vela::paths::preferences), defaults);
}

TEST_F(Startup, HooksNeedSystemVersionNine) {
    EXPECT_FALSE(installsHooks("8.4", "com.apple.springboard"));
    EXPECT_FALSE(installsHooks("8.9.9", "com.apple.springboard"));
    EXPECT_TRUE(installsHooks("9.0", "com.apple.springboard"));
    EXPECT_TRUE(installsHooks("9", "com.apple.springboard"));
    EXPECT_TRUE(installsHooks("10.2", "com.apple.springboard"));
    EXPECT_FALSE(installsHooks("beta", "com.apple.springboard"));
    EXPECT_FALSE(installsHooks("", "com.apple.springboard"));
}

TEST_F(Startup, HooksAreForTheHomeScreenWhateverItsLetterCase) {
    EXPECT_TRUE(installsHooks("9.3", "com.Apple.SpringBoard"));
    EXPECT_FALSE(installsHooks("9.3", "com.apple.preferences"));
    EXPECT_FALSE(installsHooks("9.3", "com.apple.springboard2"));
    EXPECT_FALSE(installsHooks("9.3", ""));
}

TEST_F(Startup, TheHookTableStandsInItsOrder) {
    using Row = std::tuple<std::string, std::string, vela::HookKind>;
    constexpr auto replaced = vela::HookKind::Replaced, added = vela::HookKind::Added;
    const std::string spring = "SpringBoard", media = "MPUSystemMediaControlsViewController",
                      item = "MPMediaItem", volume = "MPUMediaControlsVolumeView";
    const std::vector<Row> expected{
        {spring, "applicationDidFinishLaunching:", replaced},
        {spring, "darkingWindow", added},
        {spring, "getScreenImage", added},
        {spring, "getScreenFrameByOrientation:", added},
        {spring, "velaCycler", added},
        {spring, "getOffID", added},
        {spring, "rightScalePortrait", added},
        {spring, "rightScaleLandscape", added},
        {spring, "leftScalePortrait", added},
        {spring, "leftScaleLandscape", added},
        {spring, "rightSize", added},
        {spring, "leftSize", added},
        {spring, "leftSizeForOrientation:", added},
        {spring, "rightSizeForOrientation:", added},
        {spring, "velaWillRotate:isSpring:", added},
        {spring, "socialWindow", added},
        {spring, "leftGrabberWindow", added},
        {spring, "rightGrabberWindow", added},
        {spring, "dismissVela", added},
        {media, "nowPlayingController:nowPlayingApplicationDidChange:", replaced},
        {media, "nowPlayingController:playbackStateDidChange:", replaced},
        {media, "nowPlayingController:nowPlayingInfoDidChange:", replaced},
        {media, "nowPlayingController:elapsedTimeDidChange:", replaced},
        {media, "scrollLyric", added},
        {media, "_launchCurrentNowPlayingApp", replaced},
        {"SBUIController", "clickedMenuButton", replaced},
        {"SBUIController", "handleMenuDoubleTap", replaced},
        {"SBLockScreenViewController", "_handleDisplayTurnedOff", replaced},
        {item, "songTitle", added},
        {item, "setSongTitle:", added},
        {item, "songArtist", added},
        {item, "setSongArtist:", added},
        {item, "songArtwork", added},
        {item, "setSongArtwork:", added},
        {"SBHUDController", "presentHUDView:autoDismissWithDelay:", replaced},
        {volume, "_volumeSliderBeganChanging:", replaced},
        {volume, "_volumeSliderStoppedChanging:", replaced},
    };
    std::vector<Row> actual;
    for (const auto& hook : vela::hookTable())
        actual.emplace_back(hook.className, hook.selector, hook.kind);
    EXPECT_EQ(actual, expected);
}

/// Installs the table in a process of its own, with something of the host taken away before, and answers
/// which rows did not take.
std::vector<std::string> rowsWithoutEffect(const std::function<void()>& takeAway) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        forgetAddedMethods();
        takeAway();
        std::string missing;
        for (const auto& hook : vela::hookTable())
            if (!hook.install())
                missing += hook.selector + "\n";
        const bool written =
            write(ends[1], missing.data(), missing.size()) == static_cast<ssize_t>(missing.size());
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[512];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::vector<std::string> rows;
    for (std::size_t begin = 0, end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        rows.push_back(text.substr(begin, end - begin));
    return rows;
}

TEST_F(Startup, EveryHookTakesOnAWholeHost) {
    EXPECT_EQ(rowsWithoutEffect([] {}), std::vector<std::string>{});
}

TEST_F(Startup, AMissingClassLeavesItsRowsAloneWithoutEffect) {
    const auto rows = rowsWithoutEffect([] { runtime::Registry::shared().remove("MPMediaItem"); });
    EXPECT_EQ(rows, (std::vector<std::string>{"songTitle", "setSongTitle:", "songArtist",
                                              "setSongArtist:", "songArtwork", "setSongArtwork:"}));
}

TEST_F(Startup, AMissingMethodLeavesItsRowAloneWithoutEffect) {
    const auto rows = rowsWithoutEffect(
        [] { runtime::Registry::shared().find("SBUIController")->removeOwnMethod("handleMenuDoubleTap"); });
    EXPECT_EQ(rows, std::vector<std::string>{"handleMenuDoubleTap"});
}

} // namespace
