#include "tests/vela/support/ProductTest.h"

#include "vela/panels/BlurChoice.h"
#include "vela/panels/UIImageAverageColor.h"
#include "vela/startup/ModuleState.h"

using toolkit::BlurEffectStyle;
using toolkit::Color;

namespace {

struct BlurChoice : tests::ProductTest {
    BlurChoice() { launch(); }
};

/// Pixels in memory order blue, green, red, alpha.
std::shared_ptr<const toolkit::Image> image(int width, int height, std::vector<std::uint8_t> pixels) {
    return std::make_shared<toolkit::Image>(width, height, width * 4, std::move(pixels), 1);
}

TEST_F(BlurChoice, AWhiteScreenGetsTheDarkBlurAndABlackOneTheLight) {
    EXPECT_EQ(vela::mergedColor(*tests::greyImage(255)), Color::rgba(1, 1, 1));
    EXPECT_EQ(vela::mergedColor(*tests::greyImage(0)), Color::rgba(0, 0, 0));
    EXPECT_EQ(vela::blur::styleFor(tests::greyImage(255, 750, 1334).get()), BlurEffectStyle::Dark);
    EXPECT_EQ(vela::blur::styleFor(tests::greyImage(0, 750, 1334).get()), BlurEffectStyle::Light);
}

TEST_F(BlurChoice, TheTurningPointLiesBetween127And128) {
    EXPECT_EQ(vela::blur::styleFor(tests::greyImage(128, 75, 133).get()), BlurEffectStyle::Dark);
    EXPECT_EQ(vela::blur::styleFor(tests::greyImage(127, 75, 133).get()), BlurEffectStyle::Light);
}

TEST_F(BlurChoice, TheMeanOfAllThreeComponentsDecides) {
    EXPECT_EQ(vela::blur::styleFor(image(1, 1, {255, 127, 0, 255}).get()), BlurEffectStyle::Light);
    EXPECT_EQ(vela::blur::styleFor(image(1, 1, {255, 128, 0, 255}).get()), BlurEffectStyle::Dark);
}

TEST_F(BlurChoice, AMeanOfExactlyHalfInSinglePrecisionGivesLight) {
    const auto grey = [](double value) { return vela::blur::styleFor(Color::rgba(value, value, value)); };
    EXPECT_EQ(grey(0.5), BlurEffectStyle::Light);
    EXPECT_EQ(grey(0.5 + 1e-9), BlurEffectStyle::Light);
    EXPECT_EQ(grey(0.5 + 1e-7), BlurEffectStyle::Dark);
}

TEST_F(BlurChoice, WithoutAPictureTheScreenCountsAsBlack) {
    EXPECT_EQ(vela::blur::styleFor(nullptr), BlurEffectStyle::Light);
}

TEST_F(BlurChoice, TheMergedColorReadsBlueGreenRedAndDividesInSinglePrecision) {
    const Color color = vela::mergedColor(*image(1, 1, {10, 20, 30, 255}));
    EXPECT_EQ(color.red, static_cast<double>(30 / 255.0f));
    EXPECT_EQ(color.green, static_cast<double>(20 / 255.0f));
    EXPECT_EQ(color.blue, static_cast<double>(10 / 255.0f));
    EXPECT_EQ(color.alpha, 1);
}

TEST_F(BlurChoice, TheMergedColorAveragesTheWholePicture) {
    std::vector<std::uint8_t> pixels(64 * 64 * 4, 255);
    for (std::size_t i = 0; i < pixels.size() / 2; ++i)
        if (i % 4 != 3)
            pixels[i] = 0;
    const Color color = vela::mergedColor(*image(64, 64, pixels));
    EXPECT_NEAR(color.red, 0.5, 1.0 / 255);
    EXPECT_NEAR(color.green, 0.5, 1.0 / 255);
    EXPECT_NEAR(color.blue, 0.5, 1.0 / 255);
}

TEST_F(BlurChoice, TheAverageColorTakesTheBytesInMemoryOrder) {
    const Color color = vela::averageColor(*image(2, 1, {255, 0, 51, 255, 255, 0, 51, 255}));
    const float factor = 1.0f / (1.0f * (2.0f * 255.0f));
    EXPECT_EQ(color.red, static_cast<double>(510.0f * factor));
    EXPECT_EQ(color.green, 0);
    EXPECT_EQ(color.blue, static_cast<double>(102.0f * factor));
    EXPECT_EQ(color.alpha, 1);
}

TEST_F(BlurChoice, TheAverageColorSkipsWhatPadsARow) {
    std::vector<std::uint8_t> pixels{255, 255, 255, 255, 9, 9, 9, 9, 255, 255, 255, 255, 9, 9, 9, 9};
    const toolkit::Image padded(1, 2, 8, pixels, 1);
    EXPECT_EQ(vela::averageColor(padded), Color::rgba(1, 1, 1));
}

TEST_F(BlurChoice, OnlyTheAutomaticSettingTakesAPicture) {
    host->screen = tests::greyImage(255);
    preferences({{"Blur", "dark"}});
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Dark);
    preferences({{"Blur", "light"}});
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Light);
    preferences({{"Blur", "Auto"}});
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Light);
    preferences({});
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Light);
    EXPECT_EQ(host->captures, 0);
    preferences({{"Blur", "auto"}});
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Dark);
    EXPECT_EQ(host->captures, 1);
    host->screen = tests::greyImage(10);
    EXPECT_EQ(vela::blur::chosenStyle(), BlurEffectStyle::Light);
}

} // namespace
