#include "platform/toolkit/animation/Animation.h"
#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/layers/LayerAnimations.h"
#include "tests/support/ToolkitTest.h"

#include <limits>
#include <stdexcept>

namespace toolkit {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

// ---- Curves and values

/// A point of the cubic curve through (0, 0), first, second, (1, 1), by repeated halving of its lines.
Point pointOnCurve(Point first, Point second, double s) {
    const auto between = [s](Point a, Point b) {
        return Point{a.x + (b.x - a.x) * s, a.y + (b.y - a.y) * s};
    };
    const Point ab = between({0, 0}, first), bc = between(first, second), cd = between(second, {1, 1});
    return between(between(ab, bc), between(bc, cd));
}

TEST(AnimationCurve, FollowsItsBezierCurve) {
    const struct {
        AnimationCurve curve;
        Point first, second;
    } eased[] = {{AnimationCurve::EaseIn, {0.42, 0}, {1, 1}},
                 {AnimationCurve::EaseOut, {0, 0}, {0.58, 1}},
                 {AnimationCurve::EaseInOut, {0.42, 0}, {0.58, 1}}};
    for (const auto& [curve, first, second] : eased)
        for (int step = 0; step <= 1000; ++step) {
            const Point point = pointOnCurve(first, second, step / 1000.0);
            ASSERT_THAT(curveValue(curve, point.x), DoubleNear(point.y, 1e-12)) << step;
        }
}

TEST(AnimationCurve, BeginsAtNothingAndEndsAtAll) {
    for (const auto curve : {AnimationCurve::EaseIn, AnimationCurve::EaseOut, AnimationCurve::EaseInOut,
                             AnimationCurve::Linear}) {
        EXPECT_EQ(curveValue(curve, 0), 0);
        EXPECT_EQ(curveValue(curve, 1), 1);
        EXPECT_EQ(curveValue(curve, -5), 0);
        EXPECT_EQ(curveValue(curve, 5), 1);
        EXPECT_EQ(curveValue(curve, std::numeric_limits<double>::quiet_NaN()), 0);
    }
    EXPECT_EQ(curveValue(AnimationCurve::Linear, 0.3), 0.3);
    EXPECT_THAT(curveValue(AnimationCurve::EaseInOut, 0.5), DoubleNear(0.5, 1e-15));
}

TEST(AnimatableValue, IsMixedComponentByComponent) {
    EXPECT_EQ(interpolate(2.0, 4.0, 0.25), AnimatableValue(2.5));
    EXPECT_EQ(interpolate(Point{0, 8}, Point{4, 0}, 0.25), AnimatableValue(Point{1, 6}));
    EXPECT_EQ(interpolate(Size{0, 8}, Size{4, 0}, 0.25), AnimatableValue(Size{1, 6}));
    EXPECT_EQ(interpolate(Rect{0, 0, 4, 8}, Rect{4, 8, 8, 16}, 0.5), AnimatableValue(Rect{2, 4, 6, 12}));
    EXPECT_EQ(interpolate(Color::clear(), Color::white(1), 0.5), AnimatableValue(Color{0.5, 0.5, 0.5, 0.5}));
    EXPECT_EQ(interpolate(AffineTransform(), AffineTransform::scale(3, 5), 0.5),
              AnimatableValue(AffineTransform::scale(2, 3)));
}

TEST(AnimatableValue, EndsAtTheLastBitOfItsTarget) {
    EXPECT_EQ(interpolate(0.1, 0.3, 1), AnimatableValue(0.3));
    EXPECT_EQ(interpolate(1e20, 0.3, 1), AnimatableValue(0.3));
}

// ---- View animations

class AnimationTest : public support::ToolkitTest {
protected:
    AnimationCompletion says(const std::string& name) {
        return [this, name](bool finished) {
            transcript.add(loop.now(), " ", name, finished ? " finished" : " taken over");
        };
    }
    void animate(double duration, const std::function<void()>& changes, const std::string& name,
                 double delay = 0) {
        engine.animate(duration, delay, AnimationCurve::Linear, changes, says(name));
    }
    double shownOpacity() const { return std::get<double>(layer->presented(LayerProperty::Opacity)); }

    AnimationEngine& engine = AnimationEngine::shared();
    std::shared_ptr<Layer> layer = std::make_shared<Layer>();
};

TEST_F(AnimationTest, SetsTheModelAtOnceAndShowsTheWayThere) {
    animate(
        1, [&] { layer->setOpacity(0); }, "fade");
    EXPECT_EQ(layer->opacity(), 0);
    EXPECT_EQ(shownOpacity(), 1);
    loop.advance(0.25);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.75, 1e-12));
    loop.advance(0.75);
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_THAT(transcript.take(), ElementsAre("1 fade finished"));
}

TEST_F(AnimationTest, FollowsTheCurveItWasGiven) {
    engine.animate(2, 0, AnimationCurve::EaseIn, [&] { layer->setOpacity(0); }, {});
    loop.advance(0.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(1 - curveValue(AnimationCurve::EaseIn, 0.25), 1e-12));
}

TEST_F(AnimationTest, EndsAtTheExactMomentBetweenFrames) {
    animate(
        0.123, [&] { layer->setOpacity(0); }, "fade");
    loop.advance(0.1229);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(0.0001);
    EXPECT_THAT(transcript.take(), ElementsAre("0.123 fade finished"));
    EXPECT_FALSE(layer->hasAnimations());
}

TEST_F(AnimationTest, WaitsForItsDelayWithTheOldValue) {
    animate(
        1, [&] { layer->setOpacity(0); }, "fade", 0.5);
    loop.advance(0.5);
    EXPECT_EQ(shownOpacity(), 1);
    loop.advance(0.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.5, 1e-12));
    loop.advance(0.4);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(0.2);
    EXPECT_THAT(transcript.take(), ElementsAre("1.5 fade finished"));
}

TEST_F(AnimationTest, JumpsAfterTheDelayWhenItTakesNoTime) {
    animate(
        0, [&] { layer->setOpacity(0); }, "jump", 0.5);
    loop.advance(0.4);
    EXPECT_EQ(shownOpacity(), 1);
    loop.advance(0.2);
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 jump finished"));
}

TEST_F(AnimationTest, CompletesInTheNextTurnWhenItTakesNoTime) {
    animate(
        0, [&] { layer->setOpacity(0); }, "jump");
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_FALSE(engine.isAnimating());
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0 jump finished"));
    loop.advance(1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(AnimationTest, CompletesInTheNextTurnWhenNothingChanges) {
    animate(
        3, [] {}, "empty");
    animate(
        3, [&] { layer->setOpacity(1); }, "same");
    EXPECT_FALSE(engine.isAnimating());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0 empty finished", "0 same finished"));
    loop.advance(5);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(AnimationTest, CompletesWithoutABlockOrACompletion) {
    engine.animate(1, 0, AnimationCurve::Linear, {}, {});
    engine.animate(1, 0, AnimationCurve::Linear, [&] { layer->setOpacity(0); }, {});
    loop.advance(2);
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_FALSE(engine.isAnimating());
}

TEST_F(AnimationTest, GivesWayToAPlainSetAndCompletesInTheNextTurn) {
    animate(
        1, [&] { layer->setOpacity(0); }, "fade");
    loop.advance(0.5);
    layer->setOpacity(0.9);
    EXPECT_EQ(shownOpacity(), 0.9);
    EXPECT_THAT(transcript.take(), IsEmpty()) << "not inside the setter";
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 fade taken over"));
    loop.advance(2);
    EXPECT_THAT(transcript.take(), IsEmpty()) << "and only once";
}

TEST_F(AnimationTest, GivesWayToAPlainSetOfTheValueThatTheModelHasAlready) {
    animate(
        1, [&] { layer->setOpacity(0); }, "fade");
    loop.advance(0.5);
    layer->setOpacity(0);
    EXPECT_EQ(shownOpacity(), 0);
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 fade taken over"));
}

TEST_F(AnimationTest, IsTakenOverByANewerOneFromWhereItIsShown) {
    animate(
        1, [&] { layer->setOpacity(0); }, "out");
    loop.advance(0.5);
    animate(
        1, [&] { layer->setOpacity(1); }, "in");
    EXPECT_THAT(shownOpacity(), DoubleNear(0.5, 1e-12));
    loop.advance(0.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.75, 1e-12));
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 out taken over"));
    loop.advance(0.5);
    EXPECT_EQ(shownOpacity(), 1);
    EXPECT_THAT(transcript.take(), ElementsAre("1.5 in finished"));
}

TEST_F(AnimationTest, IsTakenOverByANewerOneWithTheSameTarget) {
    animate(
        1, [&] { layer->setOpacity(0); }, "first");
    loop.advance(0.5);
    animate(
        1, [&] { layer->setOpacity(0); }, "second");
    loop.advance(0.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.25, 1e-12));
    loop.advance(0.5);
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 first taken over", "1.5 second finished"));
}

TEST_F(AnimationTest, IsTakenOverByOneWithoutDuration) {
    animate(
        1, [&] { layer->setOpacity(0); }, "slow");
    loop.advance(0.5);
    animate(
        0, [&] { layer->setOpacity(0.2); }, "now");
    EXPECT_EQ(shownOpacity(), 0.2);
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 slow taken over", "0.5 now finished"));
}

TEST_F(AnimationTest, MakesNoChangeWhereTheShownValueIsTheNewOneAlready) {
    animate(
        1, [&] { layer->setOpacity(0); }, "out");
    animate(
        1, [&] { layer->setOpacity(1); }, "back");
    EXPECT_FALSE(engine.isAnimating());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0 out taken over", "0 back finished"));
}

TEST_F(AnimationTest, EndsAtItsOwnTimeWhenOnlyPartOfItWasTakenOver) {
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            layer->setPosition({100, 0});
        },
        "both");
    loop.advance(0.5);
    layer->setOpacity(0.5);
    loop.advance(0.25);
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_EQ(layer->presented(LayerProperty::Position), AnimatableValue(Point{75, 0}));
    loop.advance(0.25);
    EXPECT_THAT(transcript.take(), ElementsAre("1 both taken over"));
}

TEST_F(AnimationTest, FinishesWhenANewerOneBringsPartOfItToTheSameValue) {
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            layer->setPosition({100, 0});
        },
        "both");
    loop.advance(0.5);
    animate(
        1, [&] { layer->setOpacity(0); }, "same");
    loop.advance(0.5);
    EXPECT_THAT(transcript.take(), ElementsAre("1 both finished"));
    EXPECT_THAT(shownOpacity(), DoubleNear(0.25, 1e-12));
    loop.advance(0.5);
    EXPECT_THAT(transcript.take(), ElementsAre("1.5 same finished"));
}

TEST_F(AnimationTest, EndsWhenAllItsLayersAreGone) {
    auto other = std::make_shared<Layer>();
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            other->setOpacity(0);
        },
        "fade");
    loop.advance(0.2);
    other = nullptr;
    loop.advance(0.2);
    EXPECT_THAT(transcript.take(), IsEmpty());
    layer = nullptr;
    EXPECT_FALSE(engine.isAnimating());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0.4 fade taken over"));
}

TEST_F(AnimationTest, CountsAPropertySetTwiceInItsBlockOnce) {
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            layer->setOpacity(0.5);
        },
        "twice");
    loop.advance(0.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.75, 1e-12));
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("1 twice finished"));
}

TEST_F(AnimationTest, GivesABlockWithinItsOwnDuration) {
    auto inner = std::make_shared<Layer>();
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            animate(
                0.5, [&] { inner->setOpacity(0); }, "inner");
            layer->setPosition({10, 0});
        },
        "outer");
    loop.advance(0.25);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.75, 1e-12));
    EXPECT_EQ(inner->presented(LayerProperty::Opacity), AnimatableValue(0.5));
    EXPECT_EQ(layer->presented(LayerProperty::Position), AnimatableValue(Point{2.5, 0}));
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 inner finished", "1 outer finished"));
}

TEST_F(AnimationTest, LosesToABlockWithinItThatSetsTheSame) {
    animate(
        1,
        [&] {
            layer->setOpacity(0);
            animate(
                0.5, [&] { layer->setOpacity(0.5); }, "inner");
        },
        "outer");
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("0 outer taken over", "0.5 inner finished"));
}

TEST_F(AnimationTest, IsSwitchedOffWithin) {
    animate(
        1,
        [&] {
            EXPECT_TRUE(engine.insideBlock());
            engine.withoutAnimation([&] {
                EXPECT_FALSE(engine.insideBlock());
                layer->setPosition({5, 5});
            });
            layer->setOpacity(0);
        },
        "fade");
    EXPECT_FALSE(engine.insideBlock());
    EXPECT_EQ(layer->presented(LayerProperty::Position), AnimatableValue(Point{5, 5}));
    EXPECT_EQ(shownOpacity(), 1);
}

TEST_F(AnimationTest, MayBeStartedByACompletion) {
    engine.animate(
        1, 0, AnimationCurve::Linear, [&] { layer->setOpacity(0); },
        [&](bool) {
            transcript.add(loop.now(), " first");
            animate(
                1, [&] { layer->setOpacity(1); }, "second");
        });
    loop.advance(1.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.5, 1e-12));
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("1 first", "2 second finished"));
}

TEST_F(AnimationTest, ShowsTheEndBeforeTheCompletionRuns) {
    engine.animate(
        1, 0, AnimationCurve::EaseInOut, [&] { layer->setOpacity(0.3); },
        [&](bool) {
            EXPECT_EQ(shownOpacity(), 0.3);
            EXPECT_FALSE(engine.isAnimating());
            transcript.add("completed");
        });
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("completed"));
}

TEST_F(AnimationTest, StaysInOrderWhenABlockThrows) {
    EXPECT_THROW(animate(
                     1,
                     [&] {
                         layer->setOpacity(0);
                         throw std::runtime_error("in the block");
                     },
                     "broken"),
                 std::runtime_error);
    EXPECT_FALSE(engine.insideBlock());
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("1 broken finished"));
}

TEST_F(AnimationTest, MakesFramesDueWhileItRunsAndOnceMoreAtItsEnd) {
    animate(
        1, [&] { layer->setOpacity(0); }, "fade");
    EXPECT_TRUE(engine.isAnimating());
    loop.advance(0.9);
    const auto before = Layer::changeCount();
    loop.advance(0.2);
    EXPECT_FALSE(engine.isAnimating());
    EXPECT_GT(Layer::changeCount(), before);
}

TEST_F(AnimationTest, MovesEveryAnimatableProperty) {
    animate(
        1,
        [&] {
            layer->setBounds({0, 0, 40, 20});
            layer->setTransform(AffineTransform::scale(3, 3));
            layer->setBackgroundColor(Color::white(1));
            layer->setCornerRadius(8);
            layer->setShadow({Color::black(), 1, 3, {}});
            layer->setBorder(1, Color::white(1));
        },
        "all");
    loop.advance(0.5);
    EXPECT_EQ(layer->presented(LayerProperty::Bounds), AnimatableValue(Rect{0, 0, 20, 10}));
    EXPECT_EQ(layer->presented(LayerProperty::Transform), AnimatableValue(AffineTransform::scale(2, 2)));
    EXPECT_EQ(layer->presented(LayerProperty::BackgroundColor), AnimatableValue(Color{0.5, 0.5, 0.5, 0.5}));
    EXPECT_EQ(layer->presented(LayerProperty::CornerRadius), AnimatableValue(4.0));
    EXPECT_EQ(layer->presented(LayerProperty::ShadowOpacity), AnimatableValue(0.5));
    EXPECT_EQ(layer->presented(LayerProperty::BorderColor), AnimatableValue(Color{0.5, 0.5, 0.5, 0.5}));
    EXPECT_EQ(layer->presentedToParent().apply(Rect(0, 0, 20, 10)), (Rect{-20, -10, 40, 20}));
}

// ---- Animations by key, and transactions

class KeyedAnimationTest : public AnimationTest {
protected:
    static constexpr double forever = std::numeric_limits<double>::infinity();
    void fade(const std::string& key, double from, double to, double duration, double repeatCount = 1) {
        layer->addAnimation(
            key, {LayerProperty::Opacity, from, to, duration, AnimationCurve::Linear, repeatCount});
    }
    void transact(const std::function<void()>& changes) {
        performTransaction(false, changes, [this] { transcript.add(loop.now(), " all ended"); });
    }
};

TEST_F(KeyedAnimationTest, LiesOverTheModelValueAndGoes) {
    fade("fade", 0, 0.5, 1);
    EXPECT_EQ(layer->opacity(), 1);
    EXPECT_EQ(shownOpacity(), 0);
    loop.advance(0.5);
    EXPECT_EQ(shownOpacity(), 0.25);
    layer->setOpacity(0.75);
    EXPECT_EQ(shownOpacity(), 0.25) << "a set of the model does not end it";
    loop.advance(0.5);
    EXPECT_EQ(shownOpacity(), 0.75);
    EXPECT_FALSE(engine.isAnimating());
}

TEST_F(KeyedAnimationTest, IsReplacedByOneOfItsKey) {
    fade("fade", 0, 1, 1);
    loop.advance(0.5);
    fade("fade", 0, 1, 2);
    EXPECT_EQ(layer->animations()->running().size(), 1u);
    EXPECT_EQ(shownOpacity(), 0);
    loop.advance(1);
    EXPECT_EQ(shownOpacity(), 0.5);
}

TEST_F(KeyedAnimationTest, ShowsTheNewestOfSeveral) {
    fade("a", 0.1, 0.1, 3);
    fade("b", 0.2, 0.2, 1);
    EXPECT_EQ(shownOpacity(), 0.2);
    loop.advance(1);
    EXPECT_EQ(shownOpacity(), 0.1);
    layer->removeAnimation("a");
    EXPECT_EQ(shownOpacity(), 1);
    layer->removeAnimation("a");
}

TEST_F(KeyedAnimationTest, StaysAtItsEndWhenAskedTo) {
    Layer::BasicAnimation hide{LayerProperty::Opacity, 1.0, 0.0, 0.5};
    hide.removedOnCompletion = false;
    transact([&] { layer->addAnimation("hide", hide); });
    loop.advance(0.25);
    EXPECT_EQ(shownOpacity(), 0.5);
    loop.advance(0.25);
    EXPECT_THAT(transcript.take(), ElementsAre("0.5 all ended"));
    EXPECT_EQ(shownOpacity(), 0);
    loop.advance(100);
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_FALSE(engine.isAnimating()) << "what rests makes no frames due";
    layer->setOpacity(0.75);
    EXPECT_EQ(shownOpacity(), 0);
    layer->removeAnimation("hide");
    EXPECT_EQ(shownOpacity(), 0.75);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(KeyedAnimationTest, OfThoseThatStayTheNewestShows) {
    const auto stay = [&](const char* key, double from, double to) {
        Layer::BasicAnimation animation{LayerProperty::Opacity, from, to, 0.5};
        animation.removedOnCompletion = false;
        layer->addAnimation(key, animation);
    };
    stay("show", 0, 1);
    loop.advance(1);
    stay("hide", 1, 0.25);
    loop.advance(1);
    EXPECT_EQ(shownOpacity(), 0.25);
    stay("show", 0, 1);
    loop.advance(0.25);
    EXPECT_EQ(shownOpacity(), 0.5);
    loop.advance(1);
    EXPECT_EQ(shownOpacity(), 1);
    layer->removeAnimation("show");
    EXPECT_EQ(shownOpacity(), 0.25);
}

TEST_F(KeyedAnimationTest, RepeatsAsOftenAsAsked) {
    fade("pulse", 0, 1, 1, 2.5);
    loop.advance(1.25);
    EXPECT_EQ(shownOpacity(), 0.25);
    loop.advance(1);
    EXPECT_EQ(shownOpacity(), 0.25);
    loop.advance(0.25);
    EXPECT_FALSE(layer->hasAnimations());
}

TEST_F(KeyedAnimationTest, RunsForEverUntilRemoved) {
    fade("pulse", 0, 1, 1, forever);
    loop.advance(1000.5);
    EXPECT_THAT(shownOpacity(), DoubleNear(0.5, 1e-9));
    EXPECT_TRUE(engine.isAnimating());
    layer->removeAnimation("pulse");
    EXPECT_FALSE(engine.isAnimating());
}

TEST_F(KeyedAnimationTest, ShowsNothingWithoutDuration) {
    fade("fade", 0, 0, 0, forever);
    fade("other", 0, 0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(shownOpacity(), 1);
    EXPECT_FALSE(engine.isAnimating());
}

TEST_F(KeyedAnimationTest, EndsATransactionWithTheLastOfIts) {
    const auto other = std::make_shared<Layer>();
    transact([&] {
        fade("a", 0, 1, 1);
        other->addAnimation("b", {LayerProperty::Opacity, 0.0, 1.0, 2});
    });
    loop.advance(1.9);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(0.2);
    EXPECT_THAT(transcript.take(), ElementsAre("2 all ended"));
}

TEST_F(KeyedAnimationTest, EndsATransactionInTheNextTurnWhenThereIsNothingToWaitFor) {
    transact([&] { layer->setOpacity(0.5); });
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("0 all ended"));
    loop.advance(1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(KeyedAnimationTest, EndsATransactionEarlyWhenItsAreRemovedReplacedOrGone) {
    transact([&] { fade("removed", 0, 1, 5); });
    transact([&] { fade("replaced", 0, 1, 5); });
    auto lost = std::make_shared<Layer>();
    transact([&] { lost->addAnimation("lost", {LayerProperty::Opacity, 0.0, 1.0, 5}); });
    loop.advance(1);
    layer->removeAnimation("removed");
    loop.advance(1);
    fade("replaced", 0, 1, 9);
    loop.advance(1);
    lost = nullptr;
    EXPECT_EQ(transcript.take().size(), 2u);
    loop.advance(10);
    EXPECT_THAT(transcript.take(), ElementsAre("3 all ended"));
}

TEST_F(KeyedAnimationTest, EndsATransactionAfterTheViewAnimationsWithin) {
    transact([&] {
        animate(
            1, [&] { layer->setOpacity(0); }, "fade");
    });
    loop.advance(2);
    EXPECT_THAT(transcript.take(), ElementsAre("1 fade finished", "1 all ended"));
}

TEST_F(KeyedAnimationTest, MakesATransactionWithoutActionsPlain) {
    animate(
        1, [&] { performTransaction(true, [&] { layer->setOpacity(0); }); }, "none");
    EXPECT_EQ(shownOpacity(), 0);
    EXPECT_FALSE(engine.isAnimating());
}

TEST_F(KeyedAnimationTest, LeavesNothingBehindWhenTheLayerGoes) {
    fade("pulse", 0, 1, 1);
    layer = nullptr;
    EXPECT_FALSE(engine.isAnimating());
    loop.advance(2);
}

} // namespace
} // namespace toolkit
