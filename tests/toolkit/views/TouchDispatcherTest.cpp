// Which views and recognisers see a touch, and which of them has it in the end.
#include "tests/toolkit/views/GestureTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TouchDispatcherTest : public GestureTest {
protected:
    TouchDispatcherTest() {
        window->addSubview(outer);
        outer->addSubview(inner);
    }
    std::shared_ptr<UIView> outer = std::make_shared<UIView>(Rect{0, 0, 300, 300});
    std::shared_ptr<TouchedView> inner =
        std::make_shared<TouchedView>(Rect{100, 100, 100, 100}, "view", transcript);
    std::shared_ptr<GestureTarget> innerTarget = target("inner"), outerTarget = target("outer");
};

class Delegate : public runtime::Object, public GestureRecognizerDelegate {
public:
    bool gestureRecognizerShouldBegin(UIGestureRecognizer&) override { return mayBegin; }
    bool gestureRecognizerShouldRecognizeSimultaneously(UIGestureRecognizer&, UIGestureRecognizer&) override {
        return allowsBoth;
    }
    bool mayBegin = true;
    bool allowsBoth = false;
};

TEST_F(TouchDispatcherTest, BringsATouchToTheViewItWentDownOn) {
    down({110, 120}, 0);
    move({10, 20}, 0.1);
    up(0.2);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view moved (-90, -80)", "view ended (-90, -80)"));
    EXPECT_FALSE(touches.hasTouches());
}

TEST_F(TouchDispatcherTest, CancelsAViewsTouch) {
    down({110, 120}, 0);
    touches.cancelAll(0.1);
    move({10, 20}, 0.2);
    up(0.3);
    EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)", "view cancelled (10, 20)"));
}

TEST_F(TouchDispatcherTest, IgnoresWhatHitsNothing) {
    down({500, 500}, 0);
    EXPECT_FALSE(touches.hasTouches());
    move({110, 120}, 0.1);
    up(0.2);
    up(0.3, 99);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(TouchDispatcherTest, CancelsATouchWhoseNumberComesDownAgain) {
    down({110, 120}, 0);
    down({120, 120}, 1);
    up(2);
    EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)", "view cancelled (10, 20)",
                                               "view began (20, 20)", "view ended (20, 20)"));
}

TEST_F(TouchDispatcherTest, TakesTheTouchFromTheViewWhenARecogniserWins) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    down({110, 120}, 0);
    move({115, 120}, 0.1);
    move({130, 120}, 0.2);
    move({140, 120}, 0.3);
    up(0.4);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view moved (15, 20)", "view cancelled (30, 20)",
                            "outer Began", "outer Changed", "outer Ended"));
}

TEST_F(TouchDispatcherTest, TakesTheTouchFromTheViewWhenATapIsRecognised) {
    const auto tap = recognizer<UITapGestureRecognizer>(*outer, outerTarget);
    down({110, 120}, 0);
    up(0.1);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view cancelled (10, 20)", "outer Ended"));
}

TEST_F(TouchDispatcherTest, LetsTheInnermostRecogniserWin) {
    const auto outerPan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    const auto innerPan = recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    down({110, 120}, 0);
    move({150, 120}, 0.1);
    EXPECT_EQ(outerPan->state(), GestureState::Failed);
    move({160, 120}, 0.2);
    up(0.3);
    EXPECT_EQ(outerPan->state(), GestureState::Possible);
    EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)", "view cancelled (50, 20)",
                                               "inner Began", "inner Changed", "inner Ended"));
}

TEST_F(TouchDispatcherTest, LetsTheFirstToBeRecognisedWin) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    const auto tap = recognizer<UITapGestureRecognizer>(*outer, outerTarget);
    down({110, 120}, 0);
    up(0.1);
    down({110, 120}, 1);
    move({120, 120}, 1.1); // far enough for a pan, near enough for a tap
    up(1.2);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view cancelled (10, 20)", "outer Ended",
                            "view began (10, 20)", "view cancelled (20, 20)", "inner Began", "inner Ended"));
}

TEST_F(TouchDispatcherTest, LetsBothGoOnWhenEitherDelegateAllowsIt) {
    const auto outerPan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    const auto innerPan = recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    for (const auto& asked : {outerPan, innerPan}) {
        auto delegate = std::make_shared<Delegate>();
        delegate->allowsBoth = true;
        asked->setDelegate(delegate.get(), delegate.get());
        down({110, 120}, 0);
        move({150, 120}, 0.1);
        move({160, 120}, 0.2);
        up(0.3);
        EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)", "view cancelled (50, 20)",
                                                   "inner Began", "outer Began", "inner Changed",
                                                   "outer Changed", "inner Ended", "outer Ended"));
    }
    EXPECT_EQ(outerPan->delegate(), nullptr) << "the delegate's owner is gone";
    down({110, 120}, 1);
    move({150, 120}, 1.1);
    EXPECT_EQ(outerPan->state(), GestureState::Failed);
}

TEST_F(TouchDispatcherTest, AsksTheDelegateBeforeARecogniserBegins) {
    const auto outerPan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    const auto innerPan = recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    const auto delegate = std::make_shared<Delegate>();
    delegate->mayBegin = false;
    innerPan->setDelegate(delegate.get(), delegate.get());
    down({110, 120}, 0);
    move({150, 120}, 0.1);
    EXPECT_EQ(innerPan->state(), GestureState::Failed);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view cancelled (50, 20)", "outer Began"));
}

TEST_F(TouchDispatcherTest, ShowsATouchToTheRecognisersOfTheHitViewAndThoseAboveOnly) {
    const auto beside = std::make_shared<UIView>(Rect{0, 0, 50, 50});
    outer->addSubview(beside);
    const auto besidePan = recognizer<UIPanGestureRecognizer>(*beside, innerTarget);
    down({110, 120}, 0);
    move({150, 120}, 0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)", "view moved (50, 20)"));
}

TEST_F(TouchDispatcherTest, MovesARecogniserToTheViewThatItIsAddedToLast) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    outer->addGestureRecognizer(pan);
    EXPECT_THAT(inner->gestureRecognizers(), IsEmpty());
    EXPECT_EQ(pan->view(), outer.get());
}

/// Has every touch from its first moment.
class GrippingRecognizer : public UIGestureRecognizer {
public:
    using UIGestureRecognizer::UIGestureRecognizer;
    void touchBegan(const Touch&) override { transitionTo(GestureState::Began); }
    void touchMoved(const Touch&) override { transitionTo(GestureState::Changed); }
    void touchEnded(const Touch&) override { transitionTo(GestureState::Ended); }
    void touchCancelled(const Touch&) override { transitionTo(GestureState::Cancelled); }
};

TEST_F(TouchDispatcherTest, TellsAViewNothingOfATouchThatWasWonBeforeIt) {
    recognizer<GrippingRecognizer>(*outer, outerTarget);
    down({110, 120}, 0);
    move({120, 120}, 0.1);
    up(0.2);
    EXPECT_THAT(transcript.take(), ElementsAre("outer Began", "outer Changed", "outer Ended"));
}

// ---- What goes while a finger is down

TEST_F(TouchDispatcherTest, CancelsARecogniserThatIsTakenFromItsView) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    down({10, 10}, 0);
    move({50, 10}, 0.1);
    outer->removeGestureRecognizer(pan);
    move({60, 10}, 0.2);
    up(0.3);
    EXPECT_THAT(transcript.take(), ElementsAre("outer Began", "outer Cancelled"));
    EXPECT_EQ(pan->state(), GestureState::Possible);
}

TEST_F(TouchDispatcherTest, CancelsARecogniserWhoseViewIsGone) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    down({10, 10}, 0);
    move({50, 10}, 0.1);
    outer->removeFromSuperview();
    outer = nullptr;
    EXPECT_EQ(pan->view(), nullptr);
    move({60, 10}, 0.2);
    move({70, 10}, 0.3);
    up(0.4);
    EXPECT_THAT(transcript.take(), ElementsAre("outer Began", "outer Cancelled"));
}

TEST_F(TouchDispatcherTest, GoesOnWhenAnActionTakesTheViewsAway) {
    recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    innerTarget->whenTold = [this](UIGestureRecognizer&) {
        inner->removeFromSuperview();
        inner = nullptr;
        outer->removeFromSuperview();
        outer = nullptr;
        innerTarget = nullptr;
        window = nullptr;
    };
    recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    down({110, 120}, 0);
    move({150, 120}, 0.1);
    move({160, 120}, 0.2);
    up(0.3);
    EXPECT_THAT(transcript.take(),
                ElementsAre("view began (10, 20)", "view cancelled (50, 20)", "inner Began"));
    EXPECT_FALSE(touches.hasTouches());
}

TEST_F(TouchDispatcherTest, GoesOnWhenTheViewTakesItselfAway) {
    recognizer<UIPanGestureRecognizer>(*inner, innerTarget);
    inner->whenTouched = [this] {
        if (inner) {
            inner->removeFromSuperview();
            inner = nullptr;
        }
    };
    down({110, 120}, 0);
    move({150, 120}, 0.1);
    up(0.2);
    EXPECT_THAT(transcript.take(), ElementsAre("view began (10, 20)"));
}

TEST_F(TouchDispatcherTest, EndsATouchThatAnActionCancels) {
    const auto pan = recognizer<UIPanGestureRecognizer>(*outer, outerTarget);
    const auto second = recognizer<UIPanGestureRecognizer>(*window, innerTarget);
    outerTarget->whenTold = [this](UIGestureRecognizer& told) {
        if (told.state() == GestureState::Began)
            touches.cancelAll(0.1);
    };
    down({10, 10}, 0);
    move({50, 10}, 0.1);
    EXPECT_FALSE(touches.hasTouches());
    move({60, 10}, 0.2);
    up(0.3);
    EXPECT_THAT(transcript.take(), ElementsAre("outer Began", "outer Cancelled"));
    EXPECT_EQ(pan->state(), GestureState::Possible);
    EXPECT_EQ(second->state(), GestureState::Possible);
}

TEST_F(TouchDispatcherTest, StartsANewTouchFromAnActionOfTheOld) {
    const auto tap = recognizer<UITapGestureRecognizer>(*outer, outerTarget);
    bool once = true;
    outerTarget->whenTold = [&](UIGestureRecognizer&) {
        if (std::exchange(once, false)) {
            touches.cancelAll(0.1);
            down({20, 20}, 0.1);
        }
    };
    down({10, 10}, 0);
    up(0.1);
    EXPECT_TRUE(touches.hasTouches());
    up(0.2);
    EXPECT_THAT(transcript.take(), ElementsAre("outer Ended", "outer Ended"));
}

} // namespace
} // namespace toolkit
