#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/RunLoop.h"
#include "platform/preferences/PSSwitchTableCell.h"
#include "vela/settings/PageState.h"
#include "vela/settings/leftSizeLandscapeCell.h"
#include "vela/settings/leftSizePortraitCell.h"
#include "vela/settings/rightSizeLandscapeCell.h"
#include "vela/settings/rightSizePortraitCell.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;

namespace {

struct ConfigurationPage : tests::SettingsTest {
    ConfigurationPage() {
        preferences(usualPreferences());
        configuration = shown("configurationVelaController", "Configuration");
    }
    void makePreviews() {
        for (const auto& section : configuration->sections())
            configuration->headerCellForGroup(section.group);
    }
    static std::vector<std::shared_ptr<vela::sizePreviewCell>> previews() {
        const auto& state = vela::pageState();
        return {state.leftPortraitCell, state.leftLandscapeCell, state.rightPortraitCell,
                state.rightLandscapeCell};
    }

    std::shared_ptr<preferences::PSListController> configuration;
};

TEST_F(ConfigurationPage, HasItsRows) {
    EXPECT_TRUE(tests::matchesReference("configuration", tests::dumpOf(*configuration)));
}

TEST_F(ConfigurationPage, EveryLinkLeadsToAPage) {
    for (const char* name : {"Blur", "Sensibility", "Grabber height", "Load songs with", "Disable for apps",
                             "Manage artworks", "Manage lyrics"}) {
        tapRow(name);
        ASSERT_EQ(navigation->viewControllers().size(), 2u) << name;
        navigation->popViewControllerAnimated(true);
    }
}

TEST_F(ConfigurationPage, EveryRowReadsItsKey) {
    preferences({{"Blur", "auto"}, {"left_size_portrait", 0.6}, {"Keyboard", true}, {"Sensibility", "low"}});
    const auto value = [&](const char* name) { return configuration->specifierForID(name)->performGetter(); };
    EXPECT_EQ(value("Blur"), PropertyList("auto"));
    EXPECT_EQ(value("left_size_portrait"), PropertyList(0.6));
    EXPECT_EQ(value("Keyboard"), PropertyList(true));
    EXPECT_EQ(configuration->specifierForID("Sensibility")->titleForValue(value("Sensibility")), "Low");
    EXPECT_TRUE(value("Lockscreen").isNil());
}

TEST_F(ConfigurationPage, ChoosingHalfHeightTopStoresItsValue) {
    tapRow("Grabber height");
    EXPECT_EQ(top()->title(), "Grabber height");
    tapRow("Half height Top");
    EXPECT_EQ(stored("Grabber height"), PropertyList("half_top"));
    EXPECT_TRUE(top()->isSpecifierChecked(top()->specifierForID("Half height Top")));
    EXPECT_FALSE(top()->isSpecifierChecked(top()->specifierForID("Full height")));
}

TEST_F(ConfigurationPage, AChosenSensibilityIsNeverTheGettersOwn) {
    for (const char* title : {"Height", "Normal", "Low"}) {
        tapRow("Sensibility");
        tapRow(title);
        navigation->popViewControllerAnimated(true);
        EXPECT_EQ(vela::VelaSettingsManager::sharedInstance().sensibilityOfVelaGrabber(), 15.0f) << title;
    }
    EXPECT_EQ(stored("Sensibility"), PropertyList("low"));
}

TEST_F(ConfigurationPage, EverySwitchStoresItsKeyAndKeepsTheOthers) {
    for (const char* key :
         {"Lockscreen", "Alternative chevrons", "Disable Left Controller", "Keyboard", "Autoscroll"}) {
        store(*configuration, key, true);
        EXPECT_EQ(stored(key), PropertyList(true));
        store(*configuration, key, false);
        EXPECT_EQ(stored(key), PropertyList(false));
    }
    EXPECT_EQ(stored("left_size_portrait"), PropertyList(0.8));
}

TEST_F(ConfigurationPage, SwitchesAreRed) {
    for (const char* key :
         {"Lockscreen", "Alternative chevrons", "Disable Left Controller", "Keyboard", "Autoscroll"}) {
        const auto cell = configuration->cellForSpecifier(configuration->specifierForID(key));
        auto& control = *dynamic_cast<preferences::PSSwitchTableCell&>(*cell).control();
        EXPECT_EQ(control.onTintColor(), toolkit::Color::rgba(1, 72 / 255.0, 95 / 255.0, 1));
    }
}

TEST_F(ConfigurationPage, LayoutRecordsThePagesSizeAndMakesItsPreviewsAnew) {
    makePreviews();
    const auto before = previews();
    navigation->setContentSize({667, 375});
    EXPECT_EQ(vela::pageState().width, 667);
    EXPECT_EQ(vela::pageState().height, 375);
    makePreviews();
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_NE(previews()[i], before[i]) << i;
        EXPECT_DOUBLE_EQ(previews()[i]->back()->frame().center().x, 667 * 0.5) << i;
    }
}

TEST_F(ConfigurationPage, TheProductsSwitchAnimatesTheRootPagesHeader) {
    const auto root = page("VelaSettingsController");
    const auto header = root->headerCellForGroup(root->specifiers().front());
    wait(1);
    const auto row = preferences::PSSpecifier::preferenceSpecifierNamed(
        "Enable", configuration.get(), "setValue:forSpecifier:", "getValue:", "",
        preferences::PSCellType::Switch);
    row->performSetterWithValue(false);
    EXPECT_EQ(header->subviews().at(9)->frame().height, 4);
    EXPECT_EQ(stored("Enable"), PropertyList(false));
    wait(1);
    row->performSetterWithValue(true);
    EXPECT_EQ(header->subviews().at(9)->frame().height, 17);
}

TEST_F(ConfigurationPage, ASliderMovesItsOwnPreviewAndStoresItsFraction) {
    makePreviews();
    const struct {
        const char* key;
        std::size_t preview;
    } sliders[] = {{"left_size_portrait", 0},
                   {"left_size_landscape", 1},
                   {"right_size_portrait", 2},
                   {"right_size_landscape", 3}};
    for (const auto& slider : sliders) {
        std::vector<double> before;
        for (const auto& preview : previews())
            before.push_back(preview->blur()->frame().width);
        store(*configuration, slider.key, 0.625);
        EXPECT_EQ(stored(slider.key), PropertyList(0.625));
        for (std::size_t i = 0; i < 4; ++i) {
            const auto& preview = *previews()[i];
            EXPECT_EQ(preview.blur()->frame().width,
                      i == slider.preview ? 0.625 * preview.back()->frame().width : before[i])
                << slider.key << " " << i;
        }
    }
}

TEST_F(ConfigurationPage, APreviewFollowsTheSliderAndNotTheFile) {
    makePreviews();
    std::filesystem::remove_all(root / "var/mobile/Library/Preferences");
    store(*configuration, "left_size_portrait", 0.625);
    EXPECT_TRUE(stored("left_size_portrait").isNil());
    const auto& preview = *previews().front();
    EXPECT_EQ(preview.blur()->frame().width, 0.625 * preview.back()->frame().width);
}

TEST_F(ConfigurationPage, ASliderMovesWithoutPreviews) {
    vela::pageState() = {};
    store(*configuration, "left_size_portrait", 0.9);
    store(*configuration, "Blur", "light");
    EXPECT_EQ(stored("left_size_portrait"), PropertyList(0.9));
}

TEST_F(ConfigurationPage, ChoosingABlurShowsItInEveryPreview) {
    makePreviews();
    tapRow("Blur");
    tapRow("Light");
    for (const auto& preview : previews())
        EXPECT_EQ(preview->blur()->effect()->style, toolkit::BlurEffectStyle::Light);
    tapRow("Dark");
    for (const auto& preview : previews())
        EXPECT_EQ(preview->blur()->effect()->style, toolkit::BlurEffectStyle::Dark);
    tapRow("Automatic");
    for (const auto& preview : previews())
        EXPECT_EQ(preview->blur()->effect()->style, toolkit::BlurEffectStyle::Light);
    EXPECT_EQ(stored("Blur"), PropertyList("auto"));
}

TEST_F(ConfigurationPage, AStormOfSliderValuesStoresOneAFrameAndTheLast) {
    const auto row = configuration->specifierForID("right_size_portrait");
    configuration->setValueSoon(0.55, row);
    EXPECT_EQ(stored("right_size_portrait"), PropertyList(0.55));
    for (int i = 0; i < 10000; ++i)
        configuration->setValueSoon(0.6 + i * 1e-5, row);
    EXPECT_EQ(stored("right_size_portrait"), PropertyList(0.55));
    wait(foundation::RunLoop::frameInterval);
    EXPECT_EQ(stored("right_size_portrait"), PropertyList(0.6 + 9999 * 1e-5));
}

TEST_F(ConfigurationPage, LeavingThePageStoresTheLastSliderValue) {
    const auto row = configuration->specifierForID("right_size_portrait");
    const auto above = shown("VelaSettingsController");
    navigation->popViewControllerAnimated(true);
    configuration->setValueSoon(0.55, row);
    configuration->setValueSoon(0.95, row);
    shown("guideController");
    EXPECT_EQ(stored("right_size_portrait"), PropertyList(0.95));
}

} // namespace
