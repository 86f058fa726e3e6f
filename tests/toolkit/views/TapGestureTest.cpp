#include "tests/toolkit/views/GestureTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TapGestureTest : public GestureTest {
protected:
    std::shared_ptr<GestureTarget> tapTarget = target("tap");
    std::shared_ptr<UITapGestureRecognizer> tap = recognizer<UITapGestureRecognizer>(*window, tapTarget);
};

TEST_F(TapGestureTest, IsRecognisedWhenTheFingerLifts) {
    down({100, 100}, 0);
    EXPECT_THAT(transcript.take(), IsEmpty());
    up(0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("tap Ended"));
    EXPECT_EQ(tap->state(), GestureState::Possible);
}

TEST_F(TapGestureTest, AllowsTenPointsAndThreeQuartersOfASecond) {
    down({100, 100}, 1);
    move({110, 100}, 1.5);
    up(1.75);
    EXPECT_THAT(transcript.take(), ElementsAre("tap Ended"));
    down({100, 100}, 2);
    move({110.5, 100}, 2.1);
    move({100, 100}, 2.2);
    up(2.3);
    down({100, 100}, 3);
    up(3.76);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(TapGestureTest, IsNotRecognisedWhenTheTouchIsCancelled) {
    down({100, 100}, 0);
    cancel(0.1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(TapGestureTest, TellsWhereItWas) {
    const auto view = std::make_shared<UIView>(Rect{90, 80, 50, 50});
    tapTarget->whenTold = [&](UIGestureRecognizer& told) { transcript.add(told.locationInView(view.get())); };
    down({100, 100}, 0);
    up(0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("tap Ended", "(10, 20)"));
}

TEST_F(TapGestureTest, CallsAnActionWithoutAnArgument) {
    tap->addTarget(tapTarget.get(), "poke");
    down({100, 100}, 0);
    up(0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("tap Ended", "tap poked"));
}

TEST_F(TapGestureTest, TellsNothingToATargetThatIsGoneOrDoesNotUnderstand) {
    tap->addTarget(tapTarget.get(), "unheardOf:");
    tap->addTarget(nullptr, "handleGesture:");
    down({100, 100}, 0);
    up(0.1);
    EXPECT_THAT(transcript.take(), ElementsAre("tap Ended"));
    tapTarget = nullptr;
    down({100, 100}, 1);
    up(1.1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

} // namespace
} // namespace toolkit
