#include "tests/vela/settings/SettingsTest.h"

#include "platform/runtime/Creation.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "vela/settings/PageState.h"
#include "vela/settings/leftSizeLandscapeCell.h"
#include "vela/settings/leftSizePortraitCell.h"
#include "vela/settings/rightSizeLandscapeCell.h"
#include "vela/settings/rightSizePortraitCell.h"

#include <algorithm>

using toolkit::BlurEffectStyle;
using toolkit::Rect;

namespace {

struct Expected {
    const char* cellClass;
    double height;
    bool fromLeft;
    const char* firstKey;
    friend void PrintTo(const Expected& expected, std::ostream* out) { *out << expected.cellClass; }
};

struct PreviewCell : tests::SettingsTest, testing::WithParamInterface<Expected> {
    PreviewCell() {
        preferences({{"Blur", "dark"},
                     {"left_size_portrait", 0.75},
                     {"left_size_landscape", 0.375},
                     {"right_size_portrait", 0.625},
                     {"right_size_landscape", 0.3125}});
        vela::pageState().width = 375;
    }
    std::shared_ptr<vela::sizePreviewCell> cell() {
        auto made = runtime::createInstanceOf<vela::sizePreviewCell>(GetParam().cellClass);
        made->initWithSpecifier(preferences::PSSpecifier::emptyGroupSpecifier());
        return made;
    }
    /// Frames come back from centre and size, the last bit rounded.
    static void expectFrame(const toolkit::UIView& view, const Rect& expected) {
        EXPECT_DOUBLE_EQ(view.frame().x, expected.x);
        EXPECT_DOUBLE_EQ(view.frame().y, expected.y);
        EXPECT_DOUBLE_EQ(view.frame().width, expected.width);
        EXPECT_DOUBLE_EQ(view.frame().height, expected.height);
    }
    /// Whether strip and veil show a panel of `fraction`.
    void expectShown(const vela::sizePreviewCell& cell, double fraction) {
        const double w = cell.back()->bounds().width, h = cell.back()->bounds().height;
        const bool left = GetParam().fromLeft;
        expectFrame(*cell.blur(), Rect(left ? 0 : w - fraction * w, 0, fraction * w, h));
        expectFrame(*cell.darking(), Rect(left ? fraction * w : 0, 0, w - fraction * w, h));
    }
};

/// Alpha, red, green and blue.
std::uint32_t pixelAt(const toolkit::Compositor& picture, int x, int y) {
    const std::uint8_t* pixel = picture.pixels() + y * picture.bytesPerRow() + x * 4;
    return std::uint32_t{pixel[3]} << 24 | std::uint32_t{pixel[2]} << 16 | std::uint32_t{pixel[1]} << 8 |
           pixel[0];
}

TEST_P(PreviewCell, HasItsHeightWhateverTheWidth) {
    const auto made = cell();
    for (double width : {0.0, 320.0, 1024.0})
        EXPECT_EQ(made->preferredHeightForWidth(width), GetParam().height);
    EXPECT_EQ(made->reuseIdentifier(), "headerCell");
    EXPECT_EQ(made->style(), 0);
}

TEST_P(PreviewCell, CentresItsPictureInThePage) {
    const auto made = cell();
    const auto picture = made->back()->image();
    ASSERT_TRUE(picture);
    const double height = GetParam().height - 20;
    const double width = height * picture->size().width / picture->size().height;
    expectFrame(*made->back(), Rect((375 - width) * 0.5, 10, width, height));
    EXPECT_EQ(picture->size().width < picture->size().height, GetParam().height == 320);
}

TEST_P(PreviewCell, BeginsWithThePortraitFraction) {
    const double first = std::string(GetParam().firstKey) == "left_size_portrait" ? 0.75 : 0.625;
    expectShown(*cell(), first);
}

TEST_P(PreviewCell, ShowsWhatItIsTold) {
    const auto made = cell();
    for (float fraction : {0.5f, 0.0f, 1.0f}) {
        made->refreshWithValue(fraction);
        expectShown(*made, fraction);
    }
}

TEST_P(PreviewCell, AnythingButDarkIsLight) {
    EXPECT_EQ(cell()->blur()->effect()->style, BlurEffectStyle::Dark);
    for (const foundation::PropertyList& style :
         {foundation::PropertyList("auto"), foundation::PropertyList("light"),
          foundation::PropertyList("Dark"), foundation::PropertyList(1), foundation::PropertyList()}) {
        preference("Blur", style);
        EXPECT_EQ(cell()->blur()->effect()->style, BlurEffectStyle::Light);
    }
    const auto made = cell();
    made->setBlurStyle("dark");
    EXPECT_EQ(made->blur()->effect()->style, BlurEffectStyle::Dark);
    made->setBlurStyle("auto");
    EXPECT_EQ(made->blur()->effect()->style, BlurEffectStyle::Light);
}

TEST_P(PreviewCell, VeilsTheRestInGrey) {
    EXPECT_EQ(cell()->darking()->backgroundColor(), toolkit::Color::white(0.2, 0.45));
}

TEST_P(PreviewCell, IsTheOneThatThePageReaches) {
    cell();
    const auto made = cell();
    const auto& state = vela::pageState();
    const std::vector<std::shared_ptr<vela::sizePreviewCell>> kept{
        state.leftPortraitCell, state.leftLandscapeCell, state.rightPortraitCell, state.rightLandscapeCell};
    EXPECT_EQ(std::count(kept.begin(), kept.end(), made), 1);
    EXPECT_EQ(std::count(kept.begin(), kept.end(), nullptr), 3);
}

TEST_P(PreviewCell, WithoutItsPictureItShowsNothingAndPaints) {
    std::filesystem::remove_all(root / "Library/PreferenceBundles");
    const auto made = cell();
    EXPECT_FALSE(made->back()->image());
    EXPECT_FALSE(made->back()->frame().width > 0);
    made->refreshWithValue(0.5f);
    auto window = std::make_shared<toolkit::UIWindow>(Rect(0, 0, 375, 667));
    window->setHidden(false);
    window->setBackgroundColor(toolkit::Color::rgba(1, 0, 0));
    window->addSubview(made);
    auto beside = std::make_shared<toolkit::UIView>(Rect(0, 600, 10, 10));
    beside->setBackgroundColor(toolkit::Color::rgba(0, 0, 1));
    window->addSubview(beside);
    loop.turn();
    auto& server = toolkit::WindowServer::shared();
    server.composeFrame();
    EXPECT_EQ(pixelAt(server.compositor(), 200, 100), 0xffff0000);
    EXPECT_EQ(pixelAt(server.compositor(), 5, 605), 0xff0000ff);
}

INSTANTIATE_TEST_SUITE_P(All, PreviewCell,
                         testing::Values(Expected{"leftSizePortraitCell", 320, true, "left_size_portrait"},
                                         Expected{"leftSizeLandscapeCell", 180, true, "left_size_portrait"},
                                         Expected{"rightSizePortraitCell", 320, false, "right_size_portrait"},
                                         Expected{"rightSizeLandscapeCell", 180, false,
                                                  "right_size_portrait"}),
                         [](const auto& tested) { return std::string(tested.param.cellClass); });

} // namespace
