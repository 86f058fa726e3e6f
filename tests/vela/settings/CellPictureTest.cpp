#include "tests/vela/settings/SettingsTest.h"

#include "platform/runtime/Creation.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "tests/vela/support/ReferencePicture.h"
#include "vela/settings/PageState.h"
#include "vela/settings/sizePreviewCell.h"

using toolkit::Rect;

namespace {

struct CellPicture : tests::SettingsTest {
    /// What a white window of a cell's size shows with it.
    std::shared_ptr<const toolkit::Image> pictureOf(const std::shared_ptr<preferences::PSTableCell>& cell) {
        const Rect area{0, 0, windowSize.width, cell->preferredHeightForWidth(windowSize.width)};
        screen(area.width, area.height);
        toolkit::UIWindow window(area);
        window.setHidden(false);
        window.setBackgroundColor(toolkit::Color::white(1));
        cell->setFrame(area);
        window.addSubview(cell);
        loop.turn();
        auto& server = toolkit::WindowServer::shared();
        server.composeFrame();
        return server.compositor().image();
    }
    std::shared_ptr<preferences::PSTableCell> cell(const char* className) {
        vela::pageState().width = windowSize.width;
        auto made = runtime::createInstanceOf<preferences::PSTableCell>(className);
        made->initWithSpecifier(preferences::PSSpecifier::emptyGroupSpecifier());
        return made;
    }
};

TEST_F(CellPicture, TheHeaderFormsItsFigureWhileTheProductIsOn) {
    preferences({{"Enable", true}});
    const auto header = cell("velaCell");
    wait(0.3); // the figure stands, and nothing has begun to move at random
    EXPECT_TRUE(tests::matchesPicture("settings/header-on.png", *pictureOf(header)));
}

TEST_F(CellPicture, TheLeftPreviewsHaveTheirPanelOnTheLeft) {
    preferences({{"Blur", "dark"}, {"left_size_portrait", 0.75}});
    EXPECT_TRUE(
        tests::matchesPicture("settings/left-portrait.png", *pictureOf(cell("leftSizePortraitCell"))));
    EXPECT_TRUE(
        tests::matchesPicture("settings/left-landscape.png", *pictureOf(cell("leftSizeLandscapeCell"))));
}

TEST_F(CellPicture, TheRightPreviewsHaveTheirPanelOnTheRight) {
    preferences({{"Blur", "light"}, {"right_size_portrait", 0.75}});
    EXPECT_TRUE(
        tests::matchesPicture("settings/right-portrait.png", *pictureOf(cell("rightSizePortraitCell"))));
    EXPECT_TRUE(
        tests::matchesPicture("settings/right-landscape.png", *pictureOf(cell("rightSizeLandscapeCell"))));
}

} // namespace
