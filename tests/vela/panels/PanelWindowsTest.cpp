#include "tests/vela/support/ProductTest.h"

#include "platform/toolkit/windows/WindowServer.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/panels/socialWindow.h"
#include "vela/startup/ModuleState.h"

#include <numbers>

using namespace toolkit;

namespace {

int coversAsked = 0;

/// Stands for a cover in the strip of songs, and counts how often one is asked for.
class CountedCover : public UICollectionViewCell {
public:
    CountedCover() { ++coversAsked; }
    void prepareForReuse() override {
        UICollectionViewCell::prepareForReuse();
        ++coversAsked;
    }
};

struct PanelWindows : tests::ProductTest {
    PanelWindows() {
        preferences(usualPreferences());
        launch();
    }
    vela::ModuleState& state = vela::moduleState();

    /// Shows one song, whose cover is asked for anew whenever the strip is reloaded.
    void showCountedSong() {
        auto& strip = *state.right->artworkCollectionView();
        strip.registerClass<CountedCover>(vela::songsCollectionView::cellIdentifier);
        strip.setArray({std::make_shared<media::MPMediaItem>()});
        layOutRight({75, 0, 300, 667});
        coversAsked = 0;
    }
    void layOutRight(Rect frame) {
        state.right->setFrame(frame);
        state.right->layoutIfNeeded();
    }

    static Color colorOf(const homescreen::SBChevronView& chevron) {
        return *chevron.subviews().front()->backgroundColor();
    }
    double labelBottom() const { return 20 + state.right->applicationLabel()->frame().height; }
};

TEST_F(PanelWindows, TheDimmingWindowIsBuiltAsItShould) {
    const auto& darking = *state.darking;
    EXPECT_EQ(darking.backgroundColor(), Color::white(0, 0.6));
    EXPECT_EQ(darking.alpha(), 0);
    EXPECT_TRUE(darking.clipsToBounds());
    EXPECT_EQ(darking.controller()->type(), 5);
    EXPECT_EQ(darking.rootViewController(), darking.controller());
    for (const auto& chevron : {darking.leftChevron(), darking.rightChevron()}) {
        EXPECT_EQ(chevron->superview(), darking.controller()->view().get());
        EXPECT_EQ(chevron->transform(), AffineTransform::rotation(-std::numbers::pi / 2));
        EXPECT_EQ(chevron->state(), 0);
        EXPECT_EQ(colorOf(*chevron), Color::white(0.8, 0.9));
        EXPECT_TRUE(chevron->isUserInteractionEnabled());
    }
    EXPECT_EQ(darking.touchController(), 0);
}

TEST_F(PanelWindows, TouchesOnTheDimmingWindowGoToOneSideAtATime) {
    auto& darking = *state.darking;
    darking.setTouchController(1);
    EXPECT_TRUE(darking.rightPan()->isEnabled());
    EXPECT_TRUE(darking.rightTap()->isEnabled());
    EXPECT_FALSE(darking.leftPan()->isEnabled());
    EXPECT_FALSE(darking.leftTap()->isEnabled());
    darking.setTouchController(0);
    EXPECT_FALSE(darking.rightPan()->isEnabled());
    EXPECT_FALSE(darking.rightTap()->isEnabled());
    EXPECT_TRUE(darking.leftPan()->isEnabled());
    EXPECT_TRUE(darking.leftTap()->isEnabled());
    darking.setTouchController(-7);
    EXPECT_TRUE(darking.rightPan()->isEnabled());
    EXPECT_EQ(darking.touchController(), -7);
}

TEST_F(PanelWindows, TheLeftPanelsHierarchy) {
    const auto& left = *state.left;
    EXPECT_EQ(left.blurView()->superview(), &left);
    EXPECT_EQ(left.subviews().front(), left.blurView());
    EXPECT_EQ(left.controller()->type(), 0);
    const UIView* rootView = left.controller()->view().get();
    EXPECT_EQ(left.grabberContainer()->superview(), rootView);
    EXPECT_EQ(left.board()->superview(), rootView);
    EXPECT_EQ(left.grabberView()->superview(), left.grabberContainer().get());
    EXPECT_EQ(left.grabberView()->transform(), AffineTransform::rotation(std::numbers::pi / 2));
    EXPECT_EQ(left.grabberView()->state(), 1);
    EXPECT_EQ(colorOf(*left.grabberView()), Color::black());
    EXPECT_TRUE(left.clipsToBounds());
    EXPECT_EQ(left.blurView()->effect(), VisualEffect::blur(BlurEffectStyle::Dark));
}

TEST_F(PanelWindows, TheRightPanelsHierarchy) {
    const auto& right = *state.right;
    EXPECT_EQ(right.subviews().front(), right.blurView());
    EXPECT_EQ(right.vibrancyView()->superview(), right.blurView()->contentView().get());
    EXPECT_EQ(right.vibrancyView()->effect(),
              VisualEffect::vibrancyFor(VisualEffect::blur(BlurEffectStyle::Dark)));
    EXPECT_EQ(right.grabberContainer()->superview(), &right);
    EXPECT_EQ(right.grabberView()->transform(), AffineTransform::rotation(-std::numbers::pi / 2));
    EXPECT_EQ(right.grabberView()->state(), 1);
    EXPECT_EQ(colorOf(*right.grabberView()), Color::black());
    EXPECT_EQ(right.applicationLabel()->superview(), right.vibrancyView()->contentView().get());
    EXPECT_EQ(vela::rightController().applicationLabel()->text(), " ");
    EXPECT_EQ(right.applicationLabel()->text(), "Music") << "once it has been told how things stand";
    EXPECT_EQ(right.applicationLabel()->font(), Font::system(38));
    EXPECT_EQ(right.applicationLabel()->textColor(), Color::white(1));
    EXPECT_EQ(right.applicationLabel()->gestureRecognizers().size(), 1u);
    EXPECT_EQ(right.rootViewController(), right.mediaController());
    EXPECT_EQ(right.mediaController()->style(), 1);
    ASSERT_EQ(right.mediaController()->childViewControllers().size(), 1u);
    EXPECT_EQ(right.mediaController()->childViewControllers().front(), right.controller());
    EXPECT_EQ(right.controller()->type(), 1);
    EXPECT_EQ(right.artworkCollectionView()->superview(), &right);
    EXPECT_EQ(right.lyric()->superview(), right.vibrancyView()->contentView().get());
}

TEST_F(PanelWindows, TheLeftPanelIsLaidOutAroundItsStrip) {
    state.left->setFrame({0, 0, 300, 667});
    state.left->layoutIfNeeded();
    const auto& left = *state.left;
    EXPECT_EQ(left.blurView()->frame(), Rect(0, 0, 300, 667));
    EXPECT_EQ(left.controller()->view()->frame(), Rect(0, 0, 300, 667));
    EXPECT_EQ(left.grabberContainer()->frame(), Rect(280, 0, 20, 667));
    const Size chevron = left.grabberView()->frame().size();
    EXPECT_NEAR(left.grabberView()->frame().x, (20 - chevron.width) * 0.5, 1e-9);
    EXPECT_NEAR(left.grabberView()->frame().y, (667 - chevron.height) * 0.5, 1e-9);
    EXPECT_GT(chevron.height, chevron.width);
    EXPECT_EQ(left.board()->frame(), Rect(0, 0, 280, 667));
    EXPECT_TRUE(state.darking->leftChevron()->isHidden());
}

TEST_F(PanelWindows, TheRightPanelInPortraitHasItsControlsInTheMiddle) {
    state.right->setFrame({75, 0, 300, 667});
    state.right->layoutIfNeeded();
    const auto& right = *state.right;
    EXPECT_EQ(right.blurView()->frame(), Rect(0, 0, 300, 667));
    EXPECT_EQ(right.vibrancyView()->frame(), Rect(0, 0, 300, 667));
    EXPECT_EQ(right.grabberContainer()->frame(), Rect(0, 0, 20, 667));
    EXPECT_EQ(right.applicationLabel()->frame(), Rect(20, 20, 280, labelBottom() - 20));
    EXPECT_GT(labelBottom(), 20 + 38);
    EXPECT_EQ(right.mediaController()->view()->frame(), Rect(20, 253.5, 280, 160));
    const double top = labelBottom() + 10;
    EXPECT_EQ(right.artworkCollectionView()->frame(), Rect(20, top, 280, 253.5 - top));
    EXPECT_EQ(right.lyric()->frame(), Rect(20, 413.5, 280, 253.5));
    EXPECT_FALSE(right.lyric()->isHidden());
}

TEST_F(PanelWindows, InLandscapeTheLyricIsHiddenAndTheControlsSitAtTheBottom) {
    for (const std::int64_t orientation : {3, 4}) {
        host->frontOrientation = orientation;
        state.right->setFrame({0, 0, 333, 375 + static_cast<double>(orientation)});
        state.right->layoutIfNeeded();
        const double height = 375 + static_cast<double>(orientation);
        EXPECT_TRUE(state.right->lyric()->isHidden());
        EXPECT_EQ(state.right->mediaController()->view()->frame(), Rect(20, height - 160, 313, 160));
        const double top = labelBottom() + 10;
        EXPECT_EQ(state.right->artworkCollectionView()->frame(), Rect(20, top, 313, (height - 160) - top));
    }
}

TEST_F(PanelWindows, AShortRightPanelGetsNeitherSongsNorLyric) {
    showCountedSong();
    const Rect songs = state.right->artworkCollectionView()->frame(), lyric = state.right->lyric()->frame();
    const double shortest = 160 + 2 * (labelBottom() + 10); // no height is left for the songs
    layOutRight({75, 0, 300, shortest});
    EXPECT_EQ(state.right->artworkCollectionView()->frame(), songs);
    EXPECT_EQ(state.right->lyric()->frame(), lyric);
    EXPECT_EQ(coversAsked, 0);
    EXPECT_EQ(state.right->mediaController()->view()->frame(), Rect(20, (shortest - 160) * 0.5, 280, 160));
    layOutRight({75, 0, 300, shortest + 2});
    EXPECT_EQ(state.right->artworkCollectionView()->frame().height, 1);
    EXPECT_EQ(coversAsked, 1);
}

TEST_F(PanelWindows, APanelNoWiderThanItsStripGetsNeitherSongsNorLyric) {
    showCountedSong();
    const Rect songs = state.right->artworkCollectionView()->frame();
    layOutRight({355, 0, 20, 667});
    EXPECT_EQ(state.right->artworkCollectionView()->frame(), songs);
    EXPECT_EQ(coversAsked, 0);
}

TEST_F(PanelWindows, AlternativeChevronsLeaveThePanelsWithoutStrips) {
    preference("Alternative chevrons", true);
    state.left->setFrame({0, 0, 299, 667});
    state.right->setFrame({75, 0, 299, 667});
    state.left->layoutIfNeeded();
    state.right->layoutIfNeeded();
    EXPECT_TRUE(state.left->grabberContainer()->isHidden());
    EXPECT_TRUE(state.left->grabberView()->isHidden());
    EXPECT_EQ(state.left->grabberContainer()->frame(), Rect());
    EXPECT_EQ(state.left->grabberView()->frame().size(), Size());
    EXPECT_EQ(state.left->board()->frame(), Rect(0, 0, 299, 667));
    EXPECT_EQ(state.right->lyric()->frame().x, 0);
    EXPECT_EQ(state.right->lyric()->frame().width, 299);
    EXPECT_FALSE(state.darking->leftChevron()->isHidden());
    EXPECT_FALSE(state.darking->rightChevron()->isHidden());
    preference("Alternative chevrons", false);
    state.left->setFrame({0, 0, 300, 667});
    state.left->layoutIfNeeded();
    EXPECT_FALSE(state.left->grabberContainer()->isHidden());
    EXPECT_EQ(state.left->grabberView()->bounds().size(),
              (Size{homescreen::SBChevronView::fittedWidth, homescreen::SBChevronView::fittedHeight}));
    EXPECT_TRUE(state.darking->leftChevron()->isHidden());
}

TEST_F(PanelWindows, WithAlternativeChevronsAPanCannotBeginOnThePanel) {
    preference("Alternative chevrons", true);
    wait(0.5);
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(0.5);
    ASSERT_TRUE(state.rightGrabber->showed());
    const Rect open = state.right->frame();
    touchDown(85, 300);
    touchMove(300, 300, 0.2);
    EXPECT_EQ(state.right->frame(), open);
    touchUp();
    wait(0.5);
    EXPECT_TRUE(state.rightGrabber->showed());
    touchDown(40, 300);
    touchMove(300, 300, 0.1);
    EXPECT_NE(state.right->frame(), open);
    touchUp();
}

TEST_F(PanelWindows, ATapOnTheLabelLeadsToTheApplicationThatPlays) {
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(0.5);
    ASSERT_TRUE(state.rightGrabber->showed());
    const auto& label = *state.right->applicationLabel();
    const Point middle = label.convertPointTo(label.bounds().center(), nullptr);
    tap(middle.x, middle.y);
    wait(0.5);
    EXPECT_FALSE(state.rightGrabber->showed()) << "the panel gives way to it";
}

TEST_F(PanelWindows, ThePlaceholderIsShownAndCannotBeTouched) {
    EXPECT_FALSE(state.social->isHidden());
    EXPECT_FALSE(state.social->isUserInteractionEnabled());
    EXPECT_TRUE(state.social->backgroundColor()->isClear());
    EXPECT_EQ(state.social->controller()->type(), 4);
    EXPECT_TRUE(state.social->clipsToBounds());
    EXPECT_EQ(WindowServer::shared().windowAt({180, 300}), host->window.get());
}

} // namespace
