#include "tests/vela/board/BoardFixture.h"

#include "platform/toolkit/rendering/ImageFile.h"
#include "vela/board/velaIconView.h"

#include <fstream>

using toolkit::Rect;

namespace {

struct Board : tests::BoardFixture {};

TEST_F(Board, WithoutPlugInsSaysSo) {
    vela::velaBoard board({0, 0, 300, 500});
    EXPECT_TRUE(board.apps().empty());
    EXPECT_FALSE(board.noApps()->isHidden());
    EXPECT_EQ(board.noApps()->text(), "No application installed");
    EXPECT_EQ(board.noApps()->font().size, 30);
    EXPECT_EQ(board.noApps()->numberOfLines(), 0);
    EXPECT_EQ(board.noApps()->frame(), Rect(0, 0, 300, 500));
    EXPECT_EQ(board.contentSize(), (toolkit::Size{0, 50}));
    EXPECT_TRUE(board.backgroundColor()->isClear());
    EXPECT_TRUE(board.isScrollEnabled());
    EXPECT_FALSE(board.showsHorizontalScrollIndicator());
    EXPECT_FALSE(board.showsVerticalScrollIndicator());
}

TEST_F(Board, AMissingFolderIsAnEmptyBoard) {
    std::filesystem::remove_all(plugInFolder());
    vela::velaBoard board({0, 0, 300, 500});
    EXPECT_FALSE(board.noApps()->isHidden());
    EXPECT_EQ(board.contentSize().height, 50);
}

TEST_F(Board, StacksItsTilesInTheMiddle) {
    installTiles(3);
    vela::velaBoard board({0, 0, 300, 500});
    ASSERT_EQ(board.apps().size(), 3u);
    EXPECT_TRUE(board.noApps()->isHidden());
    EXPECT_EQ(board.apps()[0]->frame(), Rect(82.5, 50, 135, 225));
    EXPECT_EQ(board.apps()[1]->frame(), Rect(82.5, 325, 135, 225));
    EXPECT_EQ(board.apps()[2]->frame(), Rect(82.5, 600, 135, 225));
    EXPECT_EQ(board.contentSize(), (toolkit::Size{0, 875}));
    for (const auto& tile : board.apps()) {
        EXPECT_EQ(tile->originalFrame(), tile->frame());
        EXPECT_EQ(tile->trasformedFrame(), tile->frame());
        EXPECT_EQ(tile->superview(), &board);
        EXPECT_EQ(tile->board(), &board);
    }
}

TEST_F(Board, CentresASingleTile) {
    installTiles(1);
    vela::velaBoard board({0, 0, 300, 500});
    EXPECT_EQ(board.apps().front()->frame(), Rect(82.5, 137.5, 135, 225));
    EXPECT_EQ(board.contentSize().height, 412.5);
}

TEST_F(Board, LaysOpenTilesOverTheVisibleArea) {
    installTiles(4);
    vela::velaBoard board({0, 0, 300, 500});
    board.setContentOffset({0, 700});
    board.apps().front()->setIsOpen(true);
    board.setIndexOfOpenedApp(2);
    EXPECT_EQ(board.scaleFactor(), 1.0);
    board.setFrame({0, 0, 300, 500});
    const double tops[] = {-300, 200, 700, 1200};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(board.apps()[i]->frame(), Rect(0, tops[i], 300, 500));
        EXPECT_EQ(board.apps()[i]->trasformedFrame(), Rect(0, tops[i], 300, 500));
    }
    EXPECT_EQ(board.apps()[3]->originalFrame(), Rect(82.5, 875, 135, 225));
    EXPECT_EQ(board.contentSize().height, 1150); // that of the closed tiles
}

TEST_F(Board, OnlyTheFirstTileSaysWhetherTheyAreOpen) {
    installTiles(2);
    vela::velaBoard board({0, 0, 300, 500});
    board.apps()[1]->setIsOpen(true);
    EXPECT_EQ(board.scaleFactor(), 0.45);
    EXPECT_EQ(board.mainFactor(), 0.45);
    EXPECT_EQ(board.space(), 50);
}

TEST_F(Board, KeepsItsCursorsInSinglePrecision) {
    installTiles(3);
    vela::velaBoard board({0, 0, 301.3, 500.7});
    const double height = 500.7 * 0.45;
    const auto second =
        static_cast<float>(static_cast<double>(50.0f) + board.apps()[0]->frame().height + 50.0f);
    EXPECT_EQ(board.apps()[0]->frame().height, height);
    EXPECT_EQ(board.apps()[1]->originalFrame().y, static_cast<double>(static_cast<float>(50 + height + 50)));
    EXPECT_NEAR(board.apps()[1]->frame().y, static_cast<double>(second), 1e-9);
}

TEST_F(Board, LoadsOnceWhenItFindsPlugIns) {
    installTiles(2);
    vela::velaBoard board;
    EXPECT_EQ(board.retried(), 3); // one call and two tiles
    const auto tiles = board.apps();
    installTiles(3);
    board.loadApps();
    EXPECT_EQ(board.apps(), tiles);
    EXPECT_EQ(board.retried(), 3);
}

TEST_F(Board, LooksOnceMoreAfterFindingNone) {
    vela::velaBoard board;
    EXPECT_EQ(board.retried(), 1);
    installTiles(2);
    board.loadApps();
    EXPECT_EQ(board.apps().size(), 2u);
    EXPECT_TRUE(board.noApps()->isHidden());
}

TEST_F(Board, NeverLooksAThirdTime) {
    vela::velaBoard board;
    board.loadApps();
    EXPECT_EQ(board.retried(), 2);
    installTiles(2);
    board.loadApps();
    EXPECT_TRUE(board.apps().empty());
}

TEST_F(Board, TheEndOfAScrollWithoutAWaitingTileDoesNothing) {
    installTiles(2);
    vela::velaBoard board({0, 0, 300, 500});
    board.apps()[1]->setWaiting(true); // not the one that was tapped last
    for (const int index : {0, 77, -1}) {
        board.setIndexOfOpenedApp(index);
        board.scrollViewDidEndScrollingAnimation(board);
        EXPECT_EQ(board.apps()[0]->frame(), Rect(82.5, 50, 135, 225));
        EXPECT_TRUE(board.apps()[1]->waiting());
    }
}

TEST_F(Board, ShowsIconAndNameOfEachPlugIn) {
    const auto picture = toolkit::encodePng(*tests::greyImage(200, 60, 60));
    std::ofstream(root / "icon.png", std::ios::binary)
        .write(reinterpret_cast<const char*>(picture.data()), static_cast<std::streamsize>(picture.size()));
    install("a", {{"CFBundleIdentifier", "a"}, {"display_name", "Clock"}, {"icon", "/icon.png"}});
    install("b", {{"CFBundleIdentifier", "b"}, {"display_name", 7}, {"icon", "/missing.png"}});
    install("c", {{"CFBundleIdentifier", "c"}, {"icon", "/var"}});
    vela::velaBoard board({0, 0, 300, 500});
    ASSERT_EQ(board.apps().size(), 3u);
    EXPECT_EQ(board.apps()[0]->icon()->lbl()->text(), "Clock");
    EXPECT_TRUE(board.apps()[0]->icon()->icon()->image());
    EXPECT_EQ(board.apps()[0]->identifier(), "a");
    EXPECT_EQ(board.apps()[1]->icon()->lbl()->text(), "");
    EXPECT_FALSE(board.apps()[1]->icon()->icon()->image());
    EXPECT_FALSE(board.apps()[2]->icon()->icon()->image());
}

TEST_F(Board, AHostWithoutIconsOfItsOwnGivesThemNoSize) {
    auto& registry = runtime::Registry::shared();
    auto& icons = *registry.find("SBIconView");
    registry.remove("SBIconView");
    EXPECT_EQ(vela::velaIconView::frameInTile({135, 225}), Rect(62.5, 102.5, 10, 20));
    registry.add(icons);
    EXPECT_EQ(vela::velaIconView::frameInTile({135, 225}), Rect(32.5, 72.5, 70, 80));
}

TEST_F(Board, AnIconViewLiesInTheTilesMiddle) {
    installTiles(1);
    vela::velaBoard board({0, 0, 300, 500});
    auto& tile = *board.apps().front();
    auto& icon = *tile.icon();
    tile.layoutIfNeeded();
    EXPECT_EQ(icon.frame(), Rect((135.0 - 70) / 2, (225.0 - 80) / 2, 70, 80));
    icon.layoutIfNeeded();
    EXPECT_EQ(icon.icon()->frame(), Rect(5, 0, 60, 60));
    EXPECT_EQ(icon.icon()->layer()->cornerRadius(), 12);
    EXPECT_TRUE(icon.icon()->clipsToBounds());
    EXPECT_EQ(icon.lbl()->frame().x, -5);
    EXPECT_EQ(icon.lbl()->frame().y, 65);
    EXPECT_EQ(icon.lbl()->frame().width, 80);
    EXPECT_EQ(icon.lbl()->font().size, 16);
    EXPECT_FALSE(icon.clipsToBounds());
}

} // namespace
