#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/layers/LayerAnimations.h"
#include "tests/support/ToolkitTest.h"
#include "vela/nowplaying/M13ProgressViewRing.h"

#include <cmath>
#include <numbers>

using namespace toolkit;
using testing::ElementsAre;
using testing::IsEmpty;
using vela::M13ProgressViewRing;

namespace {

constexpr double pi = std::numbers::pi;

struct ProgressRing : support::ToolkitTest {
    ProgressRing() {
        window->addSubview(ring);
        loop.turn();
    }
    static const Path::Arc& arcOf(const ShapeLayer& layer) {
        return std::get<Path::Arc>(layer.path().elements().at(0));
    }
    static std::vector<std::string> keysOf(const Layer& layer) {
        std::vector<std::string> keys;
        if (layer.animations())
            for (const auto& running : layer.animations()->running())
                keys.push_back(running.key);
        return keys;
    }
    static double shownOpacity(const Layer& layer) {
        return std::get<double>(layer.presented(LayerProperty::Opacity));
    }
    double iconOpacity() const { return shownOpacity(*ring->iconLayer()); }
    double labelOpacity() const { return shownOpacity(*ring->percentageLabel()->layer()); }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<M13ProgressViewRing> ring = std::make_shared<M13ProgressViewRing>(Rect(0, 0, 100, 100));
};

TEST_F(ProgressRing, IsBuiltOfThreeShapesAndALabel) {
    const Color blue = Color::rgba(0, 122 / 255.0, 1);
    EXPECT_EQ(ring->primaryColor(), blue);
    EXPECT_EQ(ring->secondaryColor(), blue);
    EXPECT_EQ(ring->animationDuration(), 0.3);
    EXPECT_TRUE(ring->backgroundColor()->isClear());
    const auto& layers = ring->layer()->sublayers();
    ASSERT_EQ(layers.size(), 4u);
    EXPECT_EQ(layers[0], ring->backgroundLayer());
    EXPECT_EQ(layers[1], ring->progressLayer());
    EXPECT_EQ(layers[2], ring->iconLayer());
    EXPECT_EQ(layers[3], ring->percentageLabel()->layer());
    EXPECT_EQ(ring->backgroundLayer()->lineCap(), LineCap::Round);
    EXPECT_EQ(ring->progressLayer()->lineCap(), LineCap::Butt);
    EXPECT_TRUE(ring->backgroundLayer()->fillColor().isClear());
    EXPECT_EQ(ring->iconLayer()->fillColor(), blue);
    EXPECT_EQ(ring->percentageLabel()->text(), "0%");
    EXPECT_EQ(ring->percentageLabel()->textAlignment(), TextAlignment::Center);
    EXPECT_EQ(ring->intrinsicContentSize(), (Size{-1, -1}));
}

TEST_F(ProgressRing, ItsWidthsFollowTheViews) {
    EXPECT_EQ(ring->backgroundRingWidth(), 2.5);
    EXPECT_EQ(ring->progressRingWidth(), 7.5);
    ring->setFrame({0, 0, 200, 200});
    loop.turn();
    EXPECT_EQ(ring->backgroundLayer()->lineWidth(), 5);
    EXPECT_EQ(ring->progressLayer()->lineWidth(), 15);
    EXPECT_EQ(ring->percentageLabel()->font(), Font::system(40));
    EXPECT_EQ(ring->percentageLabel()->frame(), Rect(0, 0, 200, 200));
}

TEST_F(ProgressRing, LayoutGivesTheLabelItsColourBack) {
    ring->percentageLabel()->setTextColor(Color::black());
    ring->setNeedsLayout();
    loop.turn();
    EXPECT_EQ(ring->percentageLabel()->textColor(), ring->primaryColor());
}

TEST_F(ProgressRing, ANarrowOneKeepsItsLeastWidths) {
    for (const double width : {39.0, 10.0, 0.0}) {
        ring->setFrame({0, 0, width, width});
        ring->setNeedsLayout();
        loop.turn();
        EXPECT_EQ(ring->backgroundRingWidth(), 1) << width;
        EXPECT_EQ(ring->progressRingWidth(), 3) << width;
    }
    EXPECT_THAT(ring->backgroundLayer()->path().elements(), IsEmpty());
}

TEST_F(ProgressRing, AWidthThatWasSetStays) {
    ring->setBackgroundRingWidth(9);
    EXPECT_EQ(ring->backgroundLayer()->lineWidth(), 9);
    EXPECT_EQ(arcOf(*ring->backgroundLayer()).radius, 45.5);
    ring->setFrame({0, 0, 200, 200});
    loop.turn();
    EXPECT_EQ(ring->backgroundRingWidth(), 9);
    EXPECT_EQ(ring->progressRingWidth(), 15);
    ring->setProgressRingWidth(20);
    ring->setFrame({0, 0, 100, 100});
    loop.turn();
    EXPECT_EQ(ring->progressRingWidth(), 20);
}

TEST_F(ProgressRing, ColoursReachTheLayersThatUseThem) {
    ring->setPrimaryColor(Color::white(1));
    ring->setSecondaryColor(Color::white(1, 0.6));
    loop.turn();
    EXPECT_EQ(ring->progressLayer()->strokeColor(), Color::white(1));
    EXPECT_EQ(ring->iconLayer()->fillColor(), Color::white(1));
    EXPECT_EQ(ring->percentageLabel()->textColor(), Color::white(1));
    EXPECT_EQ(ring->backgroundLayer()->strokeColor(), Color::white(1, 0.6));
}

TEST_F(ProgressRing, DrawsItsArcsFromTwelveOClock) {
    ring->setProgress(0.25, false);
    const auto& background = arcOf(*ring->backgroundLayer());
    EXPECT_EQ(background.center, (Point{50, 50}));
    EXPECT_EQ(background.radius, 48.75);
    EXPECT_EQ(background.start, -pi / 2);
    EXPECT_EQ(background.end, static_cast<double>(4.71238899230957f));
    const auto& progress = arcOf(*ring->progressLayer());
    EXPECT_EQ(progress.radius, 46.25);
    EXPECT_EQ(progress.start, -pi / 2);
    EXPECT_EQ(progress.end, 0);
    EXPECT_EQ(ring->percentageLabel()->text(), "25%");
}

TEST_F(ProgressRing, TheLabelIsASubviewOnlyWhileItIsShown) {
    ring->setShowPercentage(false);
    EXPECT_EQ(ring->percentageLabel()->superview(), nullptr);
    EXPECT_FALSE(ring->showPercentage());
    ring->setShowPercentage(true);
    ring->setShowPercentage(true);
    EXPECT_EQ(ring->percentageLabel()->superview(), ring.get());
    EXPECT_TRUE(ring->needsLayout());
}

// Progress

TEST_F(ProgressRing, ProgressMovesEvenlyWithinTheDuration) {
    ring->setProgress(0.2, false);
    ring->setProgress(0.8, true);
    EXPECT_EQ(ring->progress(), 0.2);
    loop.advance(0.15);
    EXPECT_NEAR(ring->progress(), 0.5, 1e-9);
    EXPECT_EQ(ring->percentageLabel()->text(), "50%");
    loop.advance(0.15 + 1.0 / 60);
    EXPECT_EQ(ring->progress(), 0.8);
    EXPECT_NEAR(arcOf(*ring->progressLayer()).end, 0.8 * 2 * pi - pi / 2, 1e-12);
}

TEST_F(ProgressRing, TheSameProgressTwiceDoesNothing) {
    ring->setProgress(0.5, false);
    const auto changes = Layer::changeCount();
    ring->setProgress(0.5, false);
    ring->setProgress(0.5, true);
    loop.advance(1);
    EXPECT_EQ(Layer::changeCount(), changes);
}

TEST_F(ProgressRing, TheProgressOfTheMomentChangesNothingUnderWay) {
    ring->setProgress(1, true);
    for (const bool animated : {false, true}) {
        loop.advance(0.1);
        ASSERT_LT(ring->progress(), 1);
        ring->setProgress(ring->progress(), animated);
    }
    loop.advance(1);
    EXPECT_EQ(ring->progress(), 1);
}

TEST_F(ProgressRing, ANewTargetStartsFromWhereTheProgressIs) {
    ring->setProgress(1, true);
    loop.advance(0.15);
    const double reached = ring->progress();
    ring->setProgress(0, true);
    EXPECT_EQ(ring->progress(), reached);
    loop.advance(0.15);
    EXPECT_NEAR(ring->progress(), reached / 2, 1e-9);
    loop.advance(1);
    EXPECT_EQ(ring->progress(), 0);
}

TEST_F(ProgressRing, AProgressWithoutAnimationEndsTheAnimation) {
    ring->setProgress(1, true);
    loop.advance(0.1);
    ring->setProgress(0.5, false);
    EXPECT_EQ(ring->progress(), 0.5);
    loop.advance(1);
    EXPECT_EQ(ring->progress(), 0.5);
}

TEST_F(ProgressRing, AFrameThatWasUnderWayDoesNotUndoAProgressWithoutAnimation) {
    ring->setProgress(1, true);
    loop.advance(0.1);
    // A later link of the same frame: the ring's own step still waits on the main queue.
    const auto link = loop.addDisplayLink([this](double) { ring->setProgress(0.5, false); });
    loop.advance(1.0 / 60);
    EXPECT_EQ(ring->progress(), 0.5);
}

TEST_F(ProgressRing, ProgressIsAnimatedByFramesOnlyWhileItMoves) {
    ring->setProgress(1, true);
    loop.advance(1);
    const auto changes = Layer::changeCount();
    loop.advance(10);
    EXPECT_EQ(Layer::changeCount(), changes);
}

// Indeterminate

TEST_F(ProgressRing, AnUnknownProgressTurnsAPartOfTheRing) {
    ring->setIndeterminate(true);
    EXPECT_EQ(arcOf(*ring->backgroundLayer()).end, static_cast<double>(3.769911289215088f));
    EXPECT_THAT(keysOf(*ring->backgroundLayer()), ElementsAre("rotationAnimation"));
    EXPECT_THAT(keysOf(*ring->progressLayer()), ElementsAre("Hide"));
    loop.advance(0.25);
    EXPECT_NEAR(std::get<double>(ring->backgroundLayer()->presented(LayerProperty::Rotation)), pi / 2, 1e-6);
    loop.advance(0.75);
    EXPECT_EQ(shownOpacity(*ring->progressLayer()), 0);
    EXPECT_EQ(labelOpacity(), 0);
    loop.advance(1000.5);
    EXPECT_NEAR(std::get<double>(ring->backgroundLayer()->presented(LayerProperty::Rotation)), pi, 1e-6);
}

TEST_F(ProgressRing, AProgressThatIsKnownAgainComesBackBeforeTheRingIsFull) {
    ring->setIndeterminate(true);
    loop.advance(1);
    ring->setIndeterminate(false);
    EXPECT_THAT(keysOf(*ring->progressLayer()), ElementsAre("Hide", "Show"));
    loop.advance(0.15);
    EXPECT_NEAR(labelOpacity(), 0.5, 1e-9);
    EXPECT_THAT(keysOf(*ring->backgroundLayer()), ElementsAre("rotationAnimation"));
    EXPECT_EQ(arcOf(*ring->backgroundLayer()).end, static_cast<double>(3.769911289215088f));
    loop.advance(0.2);
    EXPECT_EQ(labelOpacity(), 1);
    EXPECT_THAT(keysOf(*ring->backgroundLayer()), IsEmpty());
    EXPECT_EQ(arcOf(*ring->backgroundLayer()).end, static_cast<double>(4.71238899230957f));
}

TEST_F(ProgressRing, SwitchedOnAgainAtOnceItGoesOnTurning) {
    ring->setIndeterminate(true);
    loop.advance(1);
    ring->setIndeterminate(false);
    loop.advance(0.1);
    ring->setIndeterminate(true);
    loop.advance(1);
    EXPECT_THAT(keysOf(*ring->backgroundLayer()), ElementsAre("rotationAnimation"));
    EXPECT_EQ(arcOf(*ring->backgroundLayer()).end, static_cast<double>(3.769911289215088f));
}

TEST_F(ProgressRing, FadesStayWhereTheyEnd) {
    const BasicAnimation shown = ring->showAnimation(), hidden = ring->hideAnimation();
    EXPECT_EQ(shown.property, LayerProperty::Opacity);
    EXPECT_EQ(shown.from, AnimatableValue(0.0));
    EXPECT_EQ(shown.to, AnimatableValue(1.0));
    EXPECT_EQ(shown.duration, 0.3);
    EXPECT_FALSE(shown.removedOnCompletion);
    EXPECT_EQ(hidden.from, shown.to);
    EXPECT_EQ(hidden.to, shown.from);
}

// Actions

TEST_F(ProgressRing, SuccessTakesThePlaceOfTheLabel) {
    ring->performAction(vela::M13ProgressViewActionSuccess, true);
    EXPECT_EQ(ring->currentAction(), 1);
    EXPECT_EQ(ring->iconLayer()->path().elements().size(), 7u) << "the six corners of a tick";
    loop.advance(0.15);
    EXPECT_NEAR(iconOpacity(), 0.5, 1e-9);
    EXPECT_NEAR(labelOpacity(), 0.5, 1e-9);
    loop.advance(0.2);
    EXPECT_EQ(iconOpacity(), 1);
    EXPECT_EQ(labelOpacity(), 0);
}

TEST_F(ProgressRing, TheTickIsBuiltOfBarsThatGrowWithTheRing) {
    ring->performAction(vela::M13ProgressViewActionSuccess, true);
    for (const double half : {50.0, 100.0}) {
        ring->setFrame({0, 0, 2 * half, 2 * half});
        loop.turn();
        const auto& corners = ring->iconLayer()->path().elements();
        const Point first = std::get<Path::Move>(corners.at(0)).to,
                    second = std::get<Path::Line>(corners.at(1)).to;
        EXPECT_DOUBLE_EQ(first.x, 0.46 * half);
        EXPECT_DOUBLE_EQ(first.y, 1.02 * half);
        EXPECT_DOUBLE_EQ(std::hypot(second.x - first.x, second.y - first.y), 0.3 * half);
        EXPECT_DOUBLE_EQ(std::atan2(second.y - first.y, second.x - first.x), -pi / 4);
    }
}

TEST_F(ProgressRing, AnotherActionHidesTheIconBeforeItShowsItsOwn) {
    ring->performAction(vela::M13ProgressViewActionFailure, true);
    loop.advance(1);
    ring->performAction(vela::M13ProgressViewActionSuccess, true);
    EXPECT_EQ(ring->currentAction(), 2);
    EXPECT_EQ(ring->iconLayer()->path().elements().size(), 13u) << "the twelve corners of a cross";
    loop.advance(0.15);
    EXPECT_NEAR(iconOpacity(), 0.5, 1e-9);
    EXPECT_EQ(ring->currentAction(), 2);
    loop.advance(0.15);
    EXPECT_EQ(ring->currentAction(), 1);
    EXPECT_EQ(ring->iconLayer()->path().elements().size(), 7u);
    EXPECT_NEAR(iconOpacity(), 0, 1e-9);
    loop.advance(0.15);
    EXPECT_NEAR(iconOpacity(), 0.5, 1e-9);
    loop.advance(0.2);
    EXPECT_EQ(iconOpacity(), 1);
}

TEST_F(ProgressRing, NoActionBringsTheLabelBack) {
    ring->performAction(vela::M13ProgressViewActionNone, true);
    EXPECT_THAT(keysOf(*ring->iconLayer()), IsEmpty()) << "there was none";
    ring->performAction(vela::M13ProgressViewActionSuccess, false);
    loop.advance(1);
    ring->performAction(vela::M13ProgressViewActionNone, true);
    EXPECT_EQ(ring->currentAction(), 0);
    loop.advance(1);
    EXPECT_EQ(iconOpacity(), 0);
    EXPECT_EQ(labelOpacity(), 1);
    ring->drawIcon();
    EXPECT_THAT(ring->iconLayer()->path().elements(), IsEmpty());
}

TEST_F(ProgressRing, OtherNumbersAndTheSameActionDoNothing) {
    ring->performAction(3, true);
    ring->performAction(-1, true);
    EXPECT_EQ(ring->currentAction(), 0);
    ring->performAction(1, true);
    loop.advance(0.15);
    for (const int action : {1, 3, -1})
        ring->performAction(action, true);
    EXPECT_EQ(ring->currentAction(), 1);
    EXPECT_NEAR(iconOpacity(), 0.5, 1e-9);
}

TEST_F(ProgressRing, ABaseIndicatorOnlyRemembers) {
    vela::M13ProgressView base;
    base.setProgress(0.5, true);
    EXPECT_EQ(base.progress(), 0.5);
    base.performAction(1, true);
    EXPECT_TRUE(base.layer()->sublayers().empty());
}

} // namespace
