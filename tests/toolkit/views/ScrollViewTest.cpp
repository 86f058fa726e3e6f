#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/scrolling/ScrollPhysics.h"
#include "platform/toolkit/scrolling/UIScrollView.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScrollViewTest : public support::ToolkitTest, protected ScrollViewDelegate {
protected:
    ScrollViewTest() {
        window->addSubview(view);
        view->setContentSize({300, 2000});
        view->setDelegate(this);
        loop.turn();
    }
    ~ScrollViewTest() override { view->setDelegate(nullptr); }

    void scrollViewDidScroll(UIScrollView& scrolled) override {
        offsets.push_back(scrolled.contentOffset());
        if (onScroll)
            onScroll();
    }
    void scrollViewWillBeginDragging(UIScrollView&) override { transcript.add("begin dragging"); }
    void scrollViewWillEndDragging(UIScrollView&, Point velocity, Point& target) override {
        transcript.add("end dragging at ", velocity, " towards ", target);
        if (changedTarget)
            target = *changedTarget;
    }
    void scrollViewDidEndScrollingAnimation(UIScrollView&) override {
        transcript.add("arrived at ", loop.now());
    }
    /// Throws the content upwards by the finger's `velocity`, in points a second.
    void throwUp(double velocity) {
        finger.down({150, 350});
        finger.moveTo({150, 350 - velocity / 6}, 10);
        finger.up();
    }
    bool rests() { return !view->isDecelerating(); }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<UIScrollView> view = std::make_shared<UIScrollView>(Rect(0, 0, 300, 400));
    support::Finger finger{loop};
    std::vector<Point> offsets;
    std::optional<Point> changedTarget;
    std::function<void()> onScroll;
};

// Offset

TEST_F(ScrollViewTest, TellsEveryChangeOfTheOffsetOnce) {
    view->setContentOffset({0, 30});
    view->setContentOffset({0, 30});
    view->setContentOffset({0, 50});
    EXPECT_THAT(offsets, ElementsAre(Point{0, 30}, Point{0, 50}));
    EXPECT_EQ(view->bounds(), (Rect{0, 50, 300, 400}));
    EXPECT_EQ(view->frame(), (Rect{0, 0, 300, 400}));
}

TEST_F(ScrollViewTest, APlainOffsetMayLieBeyondTheEdges) {
    view->setContentOffset({0, -70});
    EXPECT_EQ(view->contentOffset(), (Point{0, -70}));
    loop.advance(2);
    EXPECT_EQ(view->contentOffset(), (Point{0, -70}));
}

TEST_F(ScrollViewTest, TakesNoOffsetThatIsNotANumber) {
    view->setContentOffset({0, std::numeric_limits<double>::quiet_NaN()});
    view->setContentOffsetAnimated({std::numeric_limits<double>::infinity(), 0});
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, AnAnimatedOffsetIsTheTargetAtOnceAndArrivesAfterThreeTenthsOfASecond) {
    loop.advance(1);
    view->setContentOffsetAnimated({0, 600});
    EXPECT_EQ(view->contentOffset(), (Point{0, 600}));
    loop.advance(0.15);
    EXPECT_NEAR(std::get<Rect>(view->layer()->presented(LayerProperty::Bounds)).y, 300, 1);
    loop.advance(0.149);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(0.001);
    EXPECT_THAT(transcript.take(), ElementsAre("arrived at 1.3"));
    EXPECT_THAT(offsets, ElementsAre(Point{0, 600}));
}

TEST_F(ScrollViewTest, AnAnimatedOffsetThatIsOvertakenNeverArrives) {
    view->setContentOffsetAnimated({0, 600});
    loop.advance(0.1);
    view->setContentOffset({0, 10});
    loop.advance(1);
    EXPECT_THAT(transcript.take(), IsEmpty());
    view->setContentOffsetAnimated({0, 600});
    loop.advance(0.1);
    view->setContentOffsetAnimated({0, 300});
    loop.advance(1);
    EXPECT_EQ(transcript.take().size(), 1u);
}

TEST_F(ScrollViewTest, SettingTheSameFrameLeavesAnAnimatedOffsetAlone) {
    view->setContentOffsetAnimated({0, 600});
    loop.advance(0.1);
    view->setFrame({0, 0, 300, 400});
    view->setFrame({20, 30, 300, 400});
    view->setContentSize({300, 2000});
    loop.advance(0.199);
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_EQ(view->frame(), (Rect{20, 30, 300, 400}));
    loop.advance(0.001);
    EXPECT_THAT(transcript.take(), ElementsAre("arrived at 0.3"));
}

TEST_F(ScrollViewTest, AnAnimatedOffsetArrivesEarlyWhenTheViewIsResized) {
    view->setContentOffsetAnimated({0, 600});
    loop.advance(0.1);
    view->setFrame({0, 0, 300, 500});
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("arrived at 0.1"));
    EXPECT_EQ(view->contentOffset(), (Point{0, 600}));
}

// Edges

TEST_F(ScrollViewTest, MovesToTheEdgeWhenTheContentShrinks) {
    view->setContentOffset({0, 1500});
    view->setContentSize({300, 900});
    EXPECT_EQ(view->contentOffset(), (Point{0, 500}));
    view->setContentSize({300, 100});
    EXPECT_EQ(view->contentOffset(), (Point{0, 0}));
}

TEST_F(ScrollViewTest, AnInsetAtTheTopMovesShortContentDown) {
    view->setContentSize({300, 100});
    view->setContentInset({150, 0, 0, 0});
    EXPECT_EQ(view->contentOffset(), (Point{0, -150}));
}

TEST_F(ScrollViewTest, SettingTheSameContentSizeLeavesAnOffsetBeyondTheEdges) {
    view->setContentOffset({0, 1900});
    view->setContentSize({300, 2000});
    EXPECT_EQ(view->contentOffset(), (Point{0, 1900}));
}

// Dragging

TEST_F(ScrollViewTest, FollowsTheFingerOneToOneOnceItDrags) {
    finger.down({150, 300});
    finger.moveTo({150, 291});
    EXPECT_THAT(transcript.take(), IsEmpty());
    finger.moveTo({150, 280});
    EXPECT_TRUE(view->isDragging());
    EXPECT_EQ(view->contentOffset(), (Point{0, 10}));
    finger.moveTo({170, 200}, 4);
    EXPECT_EQ(view->contentOffset(), (Point{0, 90}));
    finger.moveTo({150, 270}, 4);
    EXPECT_EQ(view->contentOffset(), (Point{0, 20}));
    finger.rest(0.2);
    finger.moveTo({150, 270});
    finger.up();
    EXPECT_FALSE(view->isDragging());
    EXPECT_THAT(transcript.take(), ElementsAre("begin dragging", "end dragging at (0, 0) towards (0, 20)"));
    loop.advance(1);
    EXPECT_EQ(view->contentOffset(), (Point{0, 20}));
}

TEST_F(ScrollViewTest, BeyondAnEdgeTheContentFollowsLessAndComesBack) {
    finger.down({150, 100});
    finger.moveTo({150, 310}, 10);
    const double shown = -view->contentOffset().y;
    EXPECT_NEAR(shown, rubberBand(200, 400), 0.25);
    finger.rest(0.2);
    finger.moveTo({150, 310});
    finger.up();
    EXPECT_TRUE(view->isDecelerating());
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 3));
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, CaughtBeyondAnEdgeItDoesNotJump) {
    finger.down({150, 100});
    finger.moveTo({150, 310}, 10);
    finger.up();
    loop.advance(0.05);
    finger.down({150, 300});
    const Point caught = view->contentOffset();
    EXPECT_LT(caught.y, -50);
    EXPECT_TRUE(rests());
    finger.moveTo({150, 310});
    EXPECT_NEAR(view->contentOffset().y, caught.y, 0.5);
    finger.up();
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 3));
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, CaughtBeyondAnEdgeAndLetGoItComesBack) {
    finger.down({150, 100});
    finger.moveTo({150, 310}, 10);
    finger.up();
    loop.advance(0.05);
    finger.tap({150, 300});
    EXPECT_TRUE(view->isDecelerating());
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 3));
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, DragsOnlyAlongTheAxisOnWhichTheContentIsLarger) {
    finger.down({150, 300});
    finger.moveTo({50, 290}, 5);
    finger.up();
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_THAT(offsets, IsEmpty());
    finger.down({150, 300});
    finger.moveTo({130, 200}, 5);
    EXPECT_EQ(view->contentOffset().x, 0);
    EXPECT_GT(view->contentOffset().y, 80);
    finger.up();
}

TEST_F(ScrollViewTest, ContentThatFitsIsNotDragged) {
    view->setContentSize({300, 400});
    finger.down({150, 300});
    finger.moveTo({150, 200}, 5);
    finger.up();
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, InsetsMakeContentThatFitsDraggable) {
    view->setContentSize({300, 390});
    view->setContentInset({0, 0, 60, 0});
    finger.down({150, 300});
    finger.moveTo({150, 260}, 5);
    EXPECT_EQ(view->contentOffset(), (Point{0, 30}));
    finger.up();
}

TEST_F(ScrollViewTest, ADisabledOneIsNotDragged) {
    view->setScrollEnabled(false);
    EXPECT_FALSE(view->panGestureRecognizer()->isEnabled());
    finger.down({150, 300});
    finger.moveTo({150, 200}, 5);
    finger.up();
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(ScrollViewTest, DisablingItEndsTheDrag) {
    finger.down({150, 300});
    finger.moveTo({150, 200}, 5);
    transcript.take();
    view->setScrollEnabled(false);
    EXPECT_FALSE(view->isDragging());
    EXPECT_THAT(transcript.take(), ElementsAre("end dragging at (0, 0) towards (0, 90)"));
    finger.moveTo({150, 100}, 5);
    finger.up();
    EXPECT_EQ(view->contentOffset(), (Point{0, 90}));
}

TEST_F(ScrollViewTest, ADragTakesOverAnAnimatedOffsetWhereItIsShown) {
    view->setContentOffsetAnimated({0, 600});
    finger.down({150, 300});
    finger.moveTo({150, 300}, 9);
    finger.moveTo({150, 290});
    EXPECT_GT(view->contentOffset().y, 200);
    EXPECT_LT(view->contentOffset().y, 500);
    finger.up();
    loop.advance(1);
    EXPECT_THAT(transcript.take(), testing::Not(testing::Contains(testing::StartsWith("arrived"))));
}

TEST_F(ScrollViewTest, APlainOffsetDuringADragMovesTheContentUnderTheFinger) {
    finger.down({150, 300});
    finger.moveTo({150, 250}, 5);
    view->setContentOffset({0, 500});
    finger.moveTo({150, 240});
    EXPECT_EQ(view->contentOffset(), (Point{0, 510}));
    finger.up();
}

// Deceleration

TEST_F(ScrollViewTest, AThrowTravelsAsFarAsItsVelocityCarriesIt) {
    throwUp(600);
    EXPECT_THAT(transcript.take(),
                ElementsAre("begin dragging", "end dragging at (0, 600) towards (0, 389.6999)"));
    EXPECT_TRUE(view->isDecelerating());
    loop.advance(0.5);
    EXPECT_NEAR(view->contentOffset().y, 90 + scrollOffsetAfter(600, 0.5), 0.25);
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 6));
    EXPECT_EQ(view->contentOffset(), (Point{0, 389.5}));
    for (const Point offset : offsets)
        EXPECT_EQ(offset.y * 2, std::round(offset.y * 2)) << "content between two pixels";
}

TEST_F(ScrollViewTest, AThrowAgainstTheEdgeBouncesAndRestsThere) {
    view->setContentOffset({0, 1400});
    throwUp(1500);
    double farthest = 0;
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 6));
    for (const Point offset : offsets)
        farthest = std::max(farthest, offset.y);
    EXPECT_GT(farthest, 1610);
    EXPECT_EQ(view->contentOffset(), (Point{0, 1600}));
}

TEST_F(ScrollViewTest, TheDelegateMayChangeWhereItComesToRest) {
    changedTarget = Point{0, 720};
    throwUp(600);
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 8));
    EXPECT_EQ(view->contentOffset(), (Point{0, 720}));
}

TEST_F(ScrollViewTest, APlainOffsetStopsTheMotion) {
    throwUp(600);
    loop.advance(0.1);
    view->setContentOffset({0, 222});
    EXPECT_TRUE(rests());
    loop.advance(1);
    EXPECT_EQ(view->contentOffset(), (Point{0, 222}));
}

TEST_F(ScrollViewTest, TheDelegateMayStopTheMotionFromWithin) {
    throwUp(600);
    onScroll = [this] {
        onScroll = nullptr;
        view->setContentOffset({0, 222});
    };
    loop.advance(1);
    EXPECT_TRUE(rests());
    EXPECT_EQ(view->contentOffset(), (Point{0, 222}));
}

TEST_F(ScrollViewTest, TheDelegateMayLetGoOfTheViewFromWithin) {
    throwUp(600);
    onScroll = [this] {
        onScroll = nullptr;
        view->setDelegate(nullptr);
        view->removeFromSuperview();
        view = std::make_shared<UIScrollView>();
    };
    loop.advance(1);
    EXPECT_EQ(view->contentOffset(), Point());
}

TEST_F(ScrollViewTest, ATouchStopsTheMotionAndTheContentDoesNotGetIt) {
    auto content = std::make_shared<UIView>(Rect(0, 0, 300, 2000));
    auto tap = std::make_shared<UITapGestureRecognizer>(nullptr, "tapped");
    tap->addHandler([this](UIGestureRecognizer&) { transcript.add("tapped"); });
    content->addGestureRecognizer(tap);
    view->addSubview(content);
    throwUp(600);
    transcript.take();
    loop.advance(0.2);
    finger.down({150, 200});
    const Point stopped = view->contentOffset();
    finger.rest(0.1);
    finger.up();
    loop.advance(1);
    EXPECT_EQ(view->contentOffset(), stopped);
    EXPECT_THAT(transcript.take(), IsEmpty());
    finger.tap({150, 200});
    EXPECT_THAT(transcript.take(), ElementsAre("tapped"));
}

TEST_F(ScrollViewTest, ContentThatShrinksUnderAThrowIsComeBackTo) {
    throwUp(1000);
    loop.advance(0.3);
    view->setContentSize({300, 500});
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 6));
    EXPECT_EQ(view->contentOffset(), (Point{0, 100}));
}

TEST_F(ScrollViewTest, AtRestNothingAsksForFrames) {
    throwUp(600);
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 6));
    loop.advance(1); // the indicator fades out
    const auto changes = Layer::changeCount();
    offsets.clear();
    loop.advance(5);
    EXPECT_EQ(Layer::changeCount(), changes);
    EXPECT_THAT(offsets, IsEmpty());
}

TEST_F(ScrollViewTest, TheInnerOfTwoIsDraggedAlongItsAxisAndTheOuterAlongTheOther) {
    auto strip = std::make_shared<UIScrollView>(Rect(0, 100, 300, 100));
    strip->setContentSize({1000, 100});
    view->addSubview(strip);
    finger.down({150, 150});
    finger.moveTo({100, 145}, 5);
    EXPECT_TRUE(strip->isDragging());
    EXPECT_FALSE(view->isDragging());
    finger.up();
    loop.advance(6);
    finger.down({150, 150});
    finger.moveTo({145, 100}, 5);
    EXPECT_FALSE(strip->isDragging());
    EXPECT_TRUE(view->isDragging());
    finger.up();
}

TEST_F(ScrollViewTest, TakesTouchesWithinItsBoundsUnlessHidden) {
    view->setContentOffset({0, 100});
    EXPECT_TRUE(view->takesTouchAt({10, 110}));
    EXPECT_FALSE(view->takesTouchAt({10, 90}));
    view->setHidden(true);
    EXPECT_FALSE(view->takesTouchAt({10, 110}));
}

// Indicators

TEST_F(ScrollViewTest, AnIndicatorShowsWhileTheContentMoves) {
    EXPECT_THAT(view->layer()->sublayers(), IsEmpty());
    throwUp(600);
    ASSERT_EQ(view->layer()->sublayers().size(), 1u);
    EXPECT_THAT(view->subviews(), IsEmpty());
    const Layer& bar = *view->layer()->sublayers().front();
    EXPECT_EQ(bar.opacity(), 1);
    ASSERT_TRUE(loop.runUntil([this] { return rests(); }, 6));
    EXPECT_EQ(std::get<double>(bar.presented(LayerProperty::Opacity)), 1);
    loop.advance(0.7);
    EXPECT_EQ(std::get<double>(bar.presented(LayerProperty::Opacity)), 0);
}

TEST_F(ScrollViewTest, TheIndicatorShowsThePartThatIsSeen) {
    const auto barWithin = [this] {
        const Layer& bar = *view->layer()->sublayers().back();
        return bar.toParent().apply(bar.bounds()).offsetBy(0, -view->contentOffset().y);
    };
    throwUp(600);
    view->setContentOffset({0, 0});
    EXPECT_EQ(barWithin().origin(), (Point{294.5, 3}));
    EXPECT_EQ(barWithin().width, 2.5);
    EXPECT_NEAR(barWithin().height, 394.0 / 5, 1e-9);
    view->setContentOffset({0, 1600});
    EXPECT_NEAR(barWithin().maxY(), 397, 1e-9);
    view->setContentOffset({0, 1640});
    EXPECT_NEAR(barWithin().maxY(), 397, 1e-9);
    EXPECT_NEAR(barWithin().height, 394.0 / 5 - 40, 1e-9);
}

TEST_F(ScrollViewTest, AnIndicatorThatIsSwitchedOffNeverShows) {
    view->setShowsVerticalScrollIndicator(false);
    throwUp(600);
    EXPECT_THAT(view->layer()->sublayers(), IsEmpty());
    EXPECT_FALSE(view->showsVerticalScrollIndicator());
    EXPECT_TRUE(view->showsHorizontalScrollIndicator());
}

TEST_F(ScrollViewTest, TheIndicatorLiesAboveSubviewsThatCameLater) {
    throwUp(600);
    view->addSubview(std::make_shared<UIView>(Rect(0, 0, 300, 2000)));
    finger.down({150, 350});
    finger.moveTo({150, 300}, 3);
    finger.up();
    EXPECT_EQ(view->layer()->sublayers().size(), 2u);
    EXPECT_EQ(view->layer()->sublayers().front(), view->subviews().front()->layer());
}

} // namespace
} // namespace toolkit
