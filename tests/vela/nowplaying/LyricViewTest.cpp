#include "vela/nowplaying/lyricView.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

#include <limits>

using namespace toolkit;
using testing::ElementsAre;

namespace {

std::string lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line)
        text += "line " + std::to_string(line) + "\n";
    return text;
}

struct LyricView : support::ToolkitTest {
    LyricView() {
        window->addSubview(lyric);
        loop.turn();
    }
    ~LyricView() override { loop.advance(1); } // what fades comes to its end
    void show(const std::string& text, int code) {
        lyric->setText(text, code);
        loop.advance(0.5);
    }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<vela::lyricView> lyric = std::make_shared<vela::lyricView>(Rect(0, 0, 280, 250));
    support::Finger finger{loop};
};

TEST_F(LyricView, IsBuiltToShowAndNotToEdit) {
    EXPECT_EQ(lyric->text(), "Lyric");
    EXPECT_EQ(lyric->font(), Font::system(20));
    EXPECT_EQ(lyric->textColor(), Color::white(1));
    EXPECT_EQ(lyric->textAlignment(), TextAlignment::Center);
    EXPECT_FALSE(lyric->isEditable());
    EXPECT_FALSE(lyric->isSelectable());
    EXPECT_FALSE(lyric->showsHorizontalScrollIndicator());
    EXPECT_FALSE(lyric->showsVerticalScrollIndicator());
    EXPECT_TRUE(lyric->backgroundColor()->isClear());
    EXPECT_TRUE(lyric->canAutoScroll());
    const auto& ring = *lyric->ring();
    EXPECT_EQ(ring.superview(), lyric.get());
    EXPECT_EQ(ring.primaryColor(), Color::white(1));
    EXPECT_EQ(ring.secondaryColor(), Color::white(1, 0.6));
    EXPECT_FALSE(ring.showPercentage());
    EXPECT_EQ(ring.alpha(), 0);
}

TEST_F(LyricView, FadesTheTopFifth) {
    const GradientMask mask = lyric->layer()->mask().value();
    EXPECT_THAT(mask.stops, ElementsAre(GradientStop{0, Color::clear()}, GradientStop{0.2, Color::black()},
                                        GradientStop{1, Color::black()}, GradientStop{1, Color::clear()}));
    EXPECT_EQ(mask.start, (Point{0.5, 0}));
    EXPECT_EQ(mask.end, (Point{0.5, 1}));
    EXPECT_EQ(mask.bounds.size(), (Size{280, 250}));
    lyric->setFrame({0, 0, 100, 120});
    EXPECT_EQ(lyric->layer()->mask()->bounds.size(), (Size{100, 120}));
}

TEST_F(LyricView, TheFadeStaysAtTheVisibleTop) {
    show(lines(100), 3);
    lyric->setContentOffset({0, 333});
    EXPECT_EQ(lyric->layer()->mask()->position, (Point{0, 333}));
    UIView::animate(1, 0, AnimationCurve::Linear, [&] { lyric->setContentOffset({0, 400}); });
    EXPECT_EQ(lyric->layer()->mask()->position, (Point{0, 400})) << "without an animation of its own";
}

TEST_F(LyricView, AShortTextStandsInTheMiddle) {
    show("one\ntwo", 3);
    const double top = (250 - lyric->contentSize().height) * 0.5;
    EXPECT_GT(top, 50);
    EXPECT_EQ(lyric->contentInset(), (EdgeInsets{top, 0, 0, 0}));
    EXPECT_EQ(lyric->contentOffset(), (Point{0, -top}));
    EXPECT_EQ(lyric->ring()->frame(), Rect(115, 100 - top, 50, 50));
    EXPECT_EQ(lyric->ring()->frame().y - lyric->contentOffset().y, 100) << "in the middle of what is seen";
}

TEST_F(LyricView, ALongTextBeginsAtTheTop) {
    show(lines(100), 3);
    EXPECT_EQ(lyric->contentInset(), EdgeInsets());
    EXPECT_EQ(lyric->contentOffset(), (Point{0, 0}));
    EXPECT_EQ(lyric->ring()->frame(), Rect(115, 100, 50, 50));
}

TEST_F(LyricView, TheContentFitsTheTextWhenTheFadeIsOver) {
    lyric->setText(lines(100), 3);
    loop.advance(0.3);
    EXPECT_EQ(lyric->contentSize(), lyric->sizeThatFits({280, std::numeric_limits<double>::max()}));
}

TEST_F(LyricView, ALyricIsShownInItsOwnSizeAndScrolls) {
    lyric->setText(lines(100), 3);
    EXPECT_EQ(lyric->text(), lines(100)) << "at once, under the fading picture of the old text";
    EXPECT_EQ(lyric->font(), Font::system(16));
    EXPECT_TRUE(lyric->isScrollEnabled());
}

TEST_F(LyricView, EveryOtherResultIsAWordThatDoesNotScroll) {
    const struct {
        const char* text;
        int code;
        const char* shown;
    } cases[] = {{"whatever", 2, "An error as occured"},
                 {"whatever", 0, "No lyric"},
                 {"whatever", 1, "Error with song"},
                 {"whatever", 7, "Error with song"},
                 {"whatever", -1, "Error with song"},
                 {"No lyric", 3, "No lyric"},
                 {"Lyric", 3, "Lyric"}};
    for (const auto& [text, code, shown] : cases) {
        show(lines(30), 3);
        EXPECT_EQ(lyric->font(), Font::system(16)) << "after another word too";
        EXPECT_TRUE(lyric->isScrollEnabled());
        show(text, code);
        EXPECT_EQ(lyric->text(), shown) << code;
        EXPECT_EQ(lyric->font(), Font::system(20)) << code;
        EXPECT_FALSE(lyric->isScrollEnabled()) << code;
    }
}

// Ring

TEST_F(LyricView, WhileALyricIsFetchedTheRingTurns) {
    show(lines(3), 3);
    lyric->ring()->setShowPercentage(true);
    lyric->startAnimatingRing();
    EXPECT_EQ(lyric->text(), "");
    EXPECT_FALSE(lyric->ring()->isHidden());
    EXPECT_TRUE(lyric->ring()->indeterminate());
    EXPECT_FALSE(lyric->ring()->showPercentage());
    EXPECT_EQ(lyric->ring()->alpha(), 1);
    EXPECT_EQ(std::get<double>(lyric->ring()->layer()->presented(LayerProperty::Opacity)), 0);
    loop.advance(0.3);
    EXPECT_EQ(std::get<double>(lyric->ring()->layer()->presented(LayerProperty::Opacity)), 1);
}

TEST_F(LyricView, TheRingFadesOutAndThenRests) {
    lyric->startAnimatingRing();
    loop.advance(1);
    lyric->ring()->setShowPercentage(true);
    lyric->stopAnimatingRing();
    EXPECT_FALSE(lyric->ring()->isHidden());
    loop.advance(0.29);
    EXPECT_TRUE(lyric->ring()->indeterminate());
    loop.advance(0.02);
    EXPECT_TRUE(lyric->ring()->isHidden());
    EXPECT_FALSE(lyric->ring()->indeterminate());
    EXPECT_FALSE(lyric->ring()->showPercentage());
    loop.advance(1);
    EXPECT_FALSE(lyric->ring()->backgroundLayer()->hasAnimations());
}

TEST_F(LyricView, AResultTakesTheRingAway) {
    lyric->startAnimatingRing();
    loop.advance(1);
    show(lines(3), 3);
    EXPECT_TRUE(lyric->ring()->isHidden());
}

TEST_F(LyricView, ARingThatIsCalledBackWhileItFadesIsHiddenAllTheSame) {
    lyric->startAnimatingRing();
    loop.advance(1);
    lyric->stopAnimatingRing();
    loop.advance(0.1);
    lyric->startAnimatingRing();
    loop.advance(0.5);
    EXPECT_TRUE(lyric->ring()->isHidden());
    EXPECT_TRUE(lyric->ring()->indeterminate()) << "only a fade that came to its end ends the turning";
}

// Dragging

TEST_F(LyricView, AFingerHoldsAutoscrollUp) {
    show(lines(100), 3);
    finger.down({140, 200});
    finger.moveTo({140, 150}, 5);
    EXPECT_FALSE(lyric->canAutoScroll());
    finger.up();
    EXPECT_TRUE(lyric->isDecelerating());
    EXPECT_TRUE(lyric->canAutoScroll()) << "before the text has come to rest";
}

} // namespace
