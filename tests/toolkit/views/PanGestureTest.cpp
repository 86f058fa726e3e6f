#include "tests/toolkit/views/GestureTest.h"

#include <numbers>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PanGestureTest : public GestureTest {
protected:
    /// The velocity when the finger is lifted at `upTime`, after moves given as x and time.
    double releaseVelocity(std::initializer_list<std::pair<double, double>> moves, double upTime) {
        double velocity = -12345;
        panTarget->whenTold = [&](UIGestureRecognizer&) { velocity = pan->velocityInView(nullptr).x; };
        down({100, 100}, 0);
        for (const auto& [x, time] : moves)
            move({x, 100}, time);
        up(upTime);
        return velocity;
    }

    std::shared_ptr<GestureTarget> panTarget = target("pan");
    std::shared_ptr<UIPanGestureRecognizer> pan = recognizer<UIPanGestureRecognizer>(*window, panTarget);
};

TEST_F(PanGestureTest, BeginsAfterTenPointsAndFollowsToTheEnd) {
    panTarget->whenTold = [this](UIGestureRecognizer& told) {
        transcript.add(told.locationInView(nullptr), " moved ", pan->translationInView(nullptr));
    };
    down({100, 100}, 0);
    move({109.9, 100}, 0.01);
    EXPECT_EQ(pan->state(), GestureState::Possible);
    EXPECT_THAT(transcript.take(), IsEmpty());
    move({106, 108}, 0.02);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "(106, 108) moved (6, 8)"));
    move({107, 108}, 0.03);
    move({100, 100}, 0.04);
    EXPECT_EQ(pan->state(), GestureState::Changed);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Changed", "(107, 108) moved (7, 8)", "pan Changed",
                                               "(100, 100) moved (0, 0)"));
    up(0.05);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Ended", "(100, 100) moved (0, 0)"));
    EXPECT_EQ(pan->state(), GestureState::Possible);
}

TEST_F(PanGestureTest, BeginsAtTenPointsExactly) {
    down({100, 100}, 0);
    move({100, 90}, 0.01);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began"));
}

TEST_F(PanGestureTest, FailsWithoutAWordWhenItNeverBegan) {
    down({100, 100}, 0);
    move({105, 100}, 0.01);
    up(0.02);
    down({100, 100}, 1);
    cancel(1.1);
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_EQ(pan->state(), GestureState::Possible);
    down({100, 100}, 2);
    move({120, 100}, 2.1);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began")) << "and is ready for the next touch";
}

TEST_F(PanGestureTest, IsCancelledWithItsTouch) {
    down({100, 100}, 0);
    move({120, 100}, 0.01);
    cancel(0.02);
    move({140, 100}, 0.03);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "pan Cancelled"));
    EXPECT_FALSE(touches.hasTouches());
}

TEST_F(PanGestureTest, IsCancelledWhenSwitchedOffAndSilentForTheRestOfTheTouch) {
    down({100, 100}, 0);
    move({120, 100}, 0.01);
    pan->setEnabled(false);
    EXPECT_EQ(pan->state(), GestureState::Cancelled);
    pan->setEnabled(true);
    move({140, 100}, 0.02);
    up(0.03);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "pan Cancelled"));
    EXPECT_EQ(pan->state(), GestureState::Possible);
}

TEST_F(PanGestureTest, NeverBeginsInATouchDuringWhichItWasSwitchedOff) {
    down({100, 100}, 0);
    pan->setEnabled(false);
    pan->setEnabled(true);
    move({140, 100}, 0.02);
    up(0.03);
    EXPECT_THAT(transcript.take(), IsEmpty());
    pan->setEnabled(false);
    EXPECT_EQ(pan->state(), GestureState::Possible);
    down({100, 100}, 1);
    move({140, 100}, 1.1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(PanGestureTest, IsCancelledByItsOwnTarget) {
    panTarget->whenTold = [this](UIGestureRecognizer& told) {
        if (told.state() == GestureState::Changed)
            pan->setEnabled(false);
    };
    pan->addHandler([this](UIGestureRecognizer& told) { transcript.add("handler ", nameOf(told.state())); });
    down({100, 100}, 0);
    move({120, 100}, 0.01);
    move({130, 100}, 0.02);
    up(0.03);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "handler Began", "pan Changed", "pan Cancelled",
                                               "handler Cancelled"));
}

TEST_F(PanGestureTest, FollowsItsFirstFingerOnly) {
    down({100, 100}, 0, 1);
    down({200, 200}, 0.01, 2);
    move({240, 200}, 0.02, 2);
    EXPECT_THAT(transcript.take(), IsEmpty());
    move({120, 100}, 0.03, 1);
    EXPECT_EQ(pan->locationInView(nullptr), (Point{120, 100}));
    up(0.04, 2);
    EXPECT_EQ(pan->state(), GestureState::Began);
    up(0.05, 1);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "pan Ended"));
}

TEST_F(PanGestureTest, ShowsItsStateToOthersWhileTwoFingersDragTwoWindows) {
    const auto other = shownWindow({300, 0, 75, 667});
    other->setBackgroundColor(Color::black());
    const auto otherTarget = target("other");
    const auto otherPan = recognizer<UIPanGestureRecognizer>(*other, otherTarget);
    otherTarget->whenTold = [this](UIGestureRecognizer&) { transcript.add("pan is ", nameOf(pan->state())); };
    down({10, 100}, 0, 1);
    down({350, 100}, 0, 2);
    move({30, 100}, 0.01, 1);
    move({330, 100}, 0.01, 2);
    move({40, 100}, 0.02, 1);
    move({320, 100}, 0.02, 2);
    up(0.03, 1);
    up(0.03, 2);
    EXPECT_THAT(transcript.take(),
                ElementsAre("pan Began", "other Began", "pan is Began", "pan Changed", "other Changed",
                            "pan is Changed", "pan Ended", "other Ended", "pan is Possible"));
}

// ---- Velocity

TEST_F(PanGestureTest, HasTheVelocityOfASteadyDrag) {
    EXPECT_DOUBLE_EQ(releaseVelocity({{108, 0.016}, {116, 0.032}, {124, 0.048}}, 0.048), 500);
}

TEST_F(PanGestureTest, LooksBackATenthOfASecondOnly) {
    // Fast at first, 100 points a second at last.
    EXPECT_NEAR(releaseVelocity({{300, 0.02}, {304, 0.06}, {308, 0.1}, {312, 0.14}}, 0.14), 100, 1e-9);
}

TEST_F(PanGestureTest, CountsASampleAtTheVeryBeginningOfTheWindow) {
    EXPECT_NEAR(releaseVelocity({{120, 0.2}, {130, 0.25}, {150, 0.3}}, 0.3), 300, 1e-9);
}

TEST_F(PanGestureTest, HasNoVelocityAfterARest) {
    EXPECT_EQ(releaseVelocity({{150, 0.05}, {200, 0.1}}, 0.3), 0);
}

TEST_F(PanGestureTest, SlowsDownWithTheTimeBetweenTheLastMoveAndTheRelease) {
    EXPECT_NEAR(releaseVelocity({{120, 0.02}, {140, 0.04}}, 0.08), 40 / 0.08, 1e-9);
}

TEST_F(PanGestureTest, HasTheVelocityOfTheMovesWhenLiftedAtTheirTime) {
    EXPECT_NEAR(releaseVelocity({{120, 0.05}, {150, 0.1}}, 0.1), 500, 1e-9);
}

TEST_F(PanGestureTest, CountsAJumpAfterARestOverTheWholeWindow) {
    EXPECT_NEAR(releaseVelocity({{150, 1.0}}, 1.0), 500, 1e-9);
}

TEST_F(PanGestureTest, HasNoVelocityWithoutTimeToMoveIn) {
    EXPECT_EQ(releaseVelocity({{150, 0}}, 0), 0);
}

TEST_F(PanGestureTest, StaysCalmWhenTimeGoesBack) {
    EXPECT_TRUE(std::isfinite(releaseVelocity({{150, -1}, {170, 5}, {190, 4}}, -3)));
}

TEST_F(PanGestureTest, MeasuresInTheCoordinatesOfAView) {
    const auto turned = std::make_shared<UIView>(Rect{0, 0, 375, 667});
    turned->setTransform(AffineTransform::rotation(std::numbers::pi / 2));
    turned->setCenter({20, 400});
    turned->setBounds({1000, 1000, 667, 375});
    const auto scaled = std::make_shared<UIView>(Rect{0, 0, 375, 667});
    scaled->setTransform(AffineTransform::scale(2, 4));
    panTarget->whenTold = [&](UIGestureRecognizer&) {
        transcript.add(pan->velocityInView(nullptr), pan->velocityInView(turned.get()),
                       pan->velocityInView(scaled.get()));
        transcript.add(pan->translationInView(turned.get()), pan->translationInView(scaled.get()));
    };
    down({100, 100}, 0);
    move({140, 120}, 0.1);
    EXPECT_THAT(transcript.take(),
                ElementsAre("pan Began", "(400, 200)(200, -400)(200, 50)", "(20, -40)(20, 5)"));
}

TEST_F(PanGestureTest, TellsItsLocationInAViewThatFollowsTheFinger) {
    panTarget->whenTold = [this](UIGestureRecognizer& told) {
        window->setFrame({told.locationInView(nullptr).x, 0, 375, 667});
        transcript.add(told.locationInView(window.get()), told.locationInView(nullptr));
    };
    down({5, 300}, 0);
    move({55, 300}, 0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("pan Began", "(0, 300)(55, 300)"));
}

} // namespace
} // namespace toolkit
