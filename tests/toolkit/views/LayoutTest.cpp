// When views are laid out: once a turn, top down, and only those that were marked.
#include "platform/toolkit/views/UIViewController.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NamedView : public UIView {
public:
    NamedView(std::string name, support::Transcript& transcript, Rect frame = {0, 0, 10, 10})
        : UIView(frame), name_(std::move(name)), transcript_(transcript) {}
    void layoutSubviews() override {
        transcript_.add(name_);
        if (whenLaidOut)
            whenLaidOut();
    }
    std::function<void()> whenLaidOut;

private:
    std::string name_;
    support::Transcript& transcript_;
};

class LayoutTest : public support::ToolkitTest {
protected:
    LayoutTest() {
        window->addSubview(root);
        root->addSubview(a);
        root->addSubview(b);
        loop.turn();
        transcript.take();
    }
    std::shared_ptr<NamedView> named(const std::string& name) {
        return std::make_shared<NamedView>(name, transcript);
    }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 100, 100});
    std::shared_ptr<NamedView> root = named("root"), a = named("a"), b = named("b");
};

TEST_F(LayoutTest, HappensOnceAtTheEndOfTheTurnTopDown) {
    b->setNeedsLayout();
    a->setNeedsLayout();
    root->setNeedsLayout();
    a->setNeedsLayout();
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("root", "a", "b"));
    loop.turn();
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(LayoutTest, FollowsAChangeOfSizeButNotAMove) {
    a->setFrame({50, 50, 10, 10});
    a->setCenter({1, 1});
    a->setBounds({0, 20, 10, 10});
    a->setTransform(AffineTransform::scale(2, 2));
    a->setFrame(a->frame());
    loop.turn();
    EXPECT_THAT(transcript.take(), IsEmpty());
    b->setFrame({0, 0, 10, 11});
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("b"));
    b->setBounds({0, 0, 11, 11});
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("b"));
}

TEST_F(LayoutTest, FollowsANewSubviewInTheParentAndTheNewOne) {
    const auto late = named("late");
    a->addSubview(late);
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("a", "late"));
    late->removeFromSuperview();
    loop.turn();
    EXPECT_THAT(transcript.take(), IsEmpty());
    b->addSubview(late);
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("b"));
}

TEST_F(LayoutTest, HappensAtOnceWhenAskedFor) {
    a->setNeedsLayout();
    b->setNeedsLayout();
    a->layoutIfNeeded();
    EXPECT_THAT(transcript.take(), ElementsAre("a"));
    EXPECT_FALSE(a->needsLayout());
    EXPECT_TRUE(b->needsLayout());
    a->layoutIfNeeded();
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("b"));
}

TEST_F(LayoutTest, ReachesMarkedViewsBelowUnmarkedOnes) {
    root->layoutIfNeeded();
    a->setNeedsLayout();
    window->layoutIfNeeded();
    EXPECT_THAT(transcript.take(), ElementsAre("a"));
}

TEST_F(LayoutTest, LaysOutInTheSamePassWhatLayoutResized) {
    root->whenLaidOut = [this] { b->setFrame({0, 0, 30, 30}); };
    root->setNeedsLayout();
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("root", "b"));
}

TEST_F(LayoutTest, RepeatsWithinThePassWhatLayoutMarkedAbove) {
    bool once = true;
    b->whenLaidOut = [&] {
        if (std::exchange(once, false)) {
            root->setNeedsLayout();
            a->setNeedsLayout();
        }
    };
    b->setNeedsLayout();
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("b", "root", "a"));
}

TEST_F(LayoutTest, StopsAtViewsThatMarkEachOtherForEver) {
    a->whenLaidOut = [this] { b->setNeedsLayout(); };
    b->whenLaidOut = [this] { a->setNeedsLayout(); };
    a->setNeedsLayout();
    loop.turn();
    EXPECT_LT(transcript.take().size(), 1000u);
}

TEST_F(LayoutTest, GoesOnWhenLayoutTakesViewsAway) {
    a->whenLaidOut = [this] {
        b->removeFromSuperview();
        b = nullptr;
        a->removeFromSuperview();
        a = nullptr;
    };
    b->setNeedsLayout();
    a->setNeedsLayout();
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("a"));
    EXPECT_THAT(root->subviews(), IsEmpty());
}

TEST_F(LayoutTest, ReachesAnotherWindowThatLayoutMarked) {
    const auto other = shownWindow({0, 0, 10, 10});
    const auto content = named("content");
    other->addSubview(content);
    loop.turn();
    transcript.take();
    for (const auto& [first, second] :
         {std::pair(a.get(), content.get()), std::pair(content.get(), a.get())}) {
        first->whenLaidOut = [marked = second] { marked->setNeedsLayout(); };
        first->setNeedsLayout();
        loop.turn();
        EXPECT_EQ(transcript.take().size(), 2u);
        EXPECT_FALSE(second->needsLayout());
        first->whenLaidOut = {};
    }
}

TEST_F(LayoutTest, IsNotPartOfTheAnimationBlockThatMarkedIt) {
    a->whenLaidOut = [this] { b->setCenter({90, 90}); };
    UIView::animate(1, 0, AnimationCurve::Linear, [this] { a->setFrame({0, 0, 20, 20}); });
    loop.turn();
    EXPECT_TRUE(a->layer()->hasAnimations());
    EXPECT_FALSE(b->layer()->hasAnimations());
}

TEST_F(LayoutTest, IsPartOfTheAnimationBlockThatAsksForIt) {
    a->whenLaidOut = [this] { b->setCenter({90, 90}); };
    UIView::animate(1, 0, AnimationCurve::Linear, [this] {
        a->setFrame({0, 0, 20, 20});
        a->layoutIfNeeded();
    });
    EXPECT_TRUE(b->layer()->hasAnimations());
}

TEST_F(LayoutTest, LaysAWindowsRootViewOverItsBounds) {
    const auto controller = std::make_shared<UIViewController>();
    window->setRootViewController(controller);
    EXPECT_EQ(controller->view()->superview(), window.get());
    loop.turn();
    EXPECT_EQ(controller->view()->frame(), (Rect{0, 0, 100, 100}));
    window->setFrame({20, 20, 60, 200});
    loop.turn();
    EXPECT_EQ(controller->view()->frame(), (Rect{0, 0, 60, 200}));
}

TEST_F(LayoutTest, HappensInHiddenWindowsToo) {
    window->setHidden(true);
    a->setNeedsLayout();
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("a"));
}

} // namespace
} // namespace toolkit
