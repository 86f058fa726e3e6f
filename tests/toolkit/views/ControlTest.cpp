#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UISlider.h"
#include "platform/toolkit/views/UISwitch.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

#include <nlohmann/json.hpp>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A target with an action of each kind.
class ActionTarget : public runtime::Object {
    RUNTIME_CLASS()
public:
    explicit ActionTarget(support::Transcript& transcript) : transcript_(transcript) {}
    void pressed() { transcript_.add("pressed"); }
    void pressedBy(UIControl& control) { transcript_.add("pressed by ", control.isa().name()); }

private:
    support::Transcript& transcript_;
};

runtime::Class& ActionTarget::staticClass() {
    static auto& cls = runtime::ClassBuilder<ActionTarget>("ActionTarget", &runtime::Object::staticClass())
                           .method("pressed", &ActionTarget::pressed)
                           .action("pressedBy:", &ActionTarget::pressedBy)
                           .build();
    return cls;
}

class ControlTest : public support::ToolkitTest {
protected:
    template <class Control>
    std::shared_ptr<Control> shown(Rect frame) {
        auto control = std::make_shared<Control>(frame);
        window->addSubview(control);
        const std::pair<ControlEvent, const char*> names[] = {{ControlEvent::TouchDown, "down"},
                                                              {ControlEvent::TouchUpInside, "up inside"},
                                                              {ControlEvent::TouchUpOutside, "up outside"},
                                                              {ControlEvent::TouchCancel, "cancelled"},
                                                              {ControlEvent::ValueChanged, "changed"}};
        for (const auto& [event, name] : names)
            control->addHandler(event, [this, name = name] { transcript.add(name); });
        loop.turn();
        return control;
    }
    std::shared_ptr<UITapGestureRecognizer> tapAround() {
        auto tap = std::make_shared<UITapGestureRecognizer>(nullptr, "tapped");
        tap->addHandler([this](UIGestureRecognizer&) { transcript.add("tapped around"); });
        window->addGestureRecognizer(tap);
        return tap;
    }
    void panAround() {
        auto pan = std::make_shared<UIPanGestureRecognizer>(nullptr, "panned");
        pan->addHandler([this](UIGestureRecognizer& recognizer) {
            if (recognizer.state() == GestureState::Began)
                transcript.add("panned around");
        });
        window->addGestureRecognizer(pan);
    }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    support::Finger finger{loop};
};

// Touches

TEST_F(ControlTest, ATapIsATouchDownAndATouchUpInside) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    finger.down({120, 110});
    EXPECT_TRUE(control->isHighlighted());
    finger.up();
    EXPECT_FALSE(control->isHighlighted());
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
}

TEST_F(ControlTest, AFingerThatSlipsAwayEndsOutside) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    finger.down({120, 110});
    finger.moveTo({120, 205});
    EXPECT_TRUE(control->isHighlighted()) << "a little beside the control still counts";
    finger.moveTo({120, 215});
    EXPECT_FALSE(control->isHighlighted());
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up outside"));
}

TEST_F(ControlTest, AFingerThatComesBackEndsInside) {
    shown<UIControl>({100, 100, 80, 40});
    finger.down({120, 110});
    finger.moveTo({120, 300});
    finger.moveTo({120, 110});
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
}

TEST_F(ControlTest, FollowsTheFirstOfTwoFingers) {
    shown<UIControl>({100, 100, 80, 40});
    support::Finger second(loop, 2);
    finger.down({120, 110});
    second.down({130, 110});
    second.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down"));
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("up inside"));
}

TEST_F(ControlTest, ADisabledOneSendsNothing) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    control->setEnabled(false);
    finger.tap({120, 110});
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(ControlTest, DisabledUnderTheFingerItEndsNothing) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    finger.down({120, 110});
    control->setEnabled(false);
    EXPECT_FALSE(control->isHighlighted());
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down"));
}

TEST_F(ControlTest, ATapOnItIsNotATapOnWhatLiesAround) {
    shown<UIControl>({100, 100, 80, 40});
    window->setBackgroundColor(Color::white(1));
    tapAround();
    finger.tap({120, 110});
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
    finger.tap({20, 20});
    EXPECT_THAT(transcript.take(), ElementsAre("tapped around"));
}

TEST_F(ControlTest, ADragOfWhatLiesAroundTakesTheFingerOver) {
    shown<UIControl>({100, 100, 80, 40});
    panAround();
    finger.down({120, 110});
    finger.moveTo({120, 125});
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "cancelled", "panned around"));
}

TEST_F(ControlTest, InAScrollViewADragScrolls) {
    auto scroll = std::make_shared<UIScrollView>(Rect(0, 0, 375, 667));
    scroll->setContentSize({375, 2000});
    window->addSubview(scroll);
    scroll->addSubview(shown<UIControl>({100, 100, 80, 40}));
    finger.down({120, 110});
    finger.moveTo({120, 60}, 5);
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "cancelled"));
    EXPECT_GT(scroll->contentOffset().y, 30);
}

TEST_F(ControlTest, TakesTouchesWithoutABackground) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    EXPECT_TRUE(control->takesTouchAt({10, 10}));
    EXPECT_FALSE(control->takesTouchAt({90, 10}));
    control->setUserInteractionEnabled(false);
    EXPECT_FALSE(control->takesTouchAt({10, 10}));
}

// Actions

TEST_F(ControlTest, SendsItselfToActionsThatTakeASender) {
    const auto control = shown<UIButton>({100, 100, 80, 40});
    ActionTarget target(transcript);
    control->addTarget(&target, "pressed", ControlEvent::TouchUpInside);
    control->addTarget(&target, "pressedBy:", ControlEvent::TouchUpInside);
    finger.tap({120, 110});
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside", "pressed", "pressed by UIButton"));
}

TEST_F(ControlTest, ATargetThatIsGoneIsToldNothing) {
    const auto control = shown<UIControl>({100, 100, 80, 40});
    auto target = std::make_unique<ActionTarget>(transcript);
    control->addTarget(target.get(), "pressed", ControlEvent::TouchUpInside);
    target.reset();
    finger.tap({120, 110});
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
}

TEST_F(ControlTest, AnActionMayTakeTheControlAway) {
    auto control = shown<UIControl>({100, 100, 80, 40});
    control->addHandler(ControlEvent::TouchUpInside, [&] {
        control->removeFromSuperview();
        control.reset();
    });
    finger.tap({120, 110});
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
    EXPECT_EQ(control, nullptr);
}

// Buttons

TEST_F(ControlTest, AButtonDimsUnderTheFingerAndFadesBack) {
    const auto button = shown<UIButton>({100, 100, 80, 40});
    button->setTitle("Play");
    finger.down({120, 110});
    EXPECT_DOUBLE_EQ(button->titleLabel()->alpha(), 0.3);
    finger.up();
    loop.advance(0.1);
    const double shownAlpha =
        std::get<double>(button->titleLabel()->layer()->presented(LayerProperty::Opacity));
    EXPECT_GT(shownAlpha, 0.3);
    EXPECT_LT(shownAlpha, 1);
    EXPECT_EQ(button->titleLabel()->alpha(), 1);
}

TEST_F(ControlTest, AButtonCentresItsPictureAndKeepsItsProportions) {
    const auto button = shown<UIButton>({100, 100, 80, 40});
    button->setImage(Image::draw({100, 50}, 1, [](Canvas&) {}));
    loop.turn();
    EXPECT_EQ(button->imageView()->frame(), (Rect{0, 0, 80, 40}));
    button->setImage(Image::draw({20, 10}, 1, [](Canvas&) {}));
    loop.turn();
    EXPECT_EQ(button->imageView()->frame(), (Rect{30, 15, 20, 10}));
}

TEST_F(ControlTest, AButtonFitsItsPictureAndItsTitleSideBySide) {
    const auto button = shown<UIButton>({0, 0, 200, 40});
    button->setTitle("Play");
    const double titleWidth = button->titleLabel()->sizeThatFits({}).width;
    button->setImage(Image::draw({20, 30}, 1, [](Canvas&) {}));
    EXPECT_EQ(button->sizeThatFits({}), (Size{26 + titleWidth, 30}));
    loop.turn();
    EXPECT_EQ(button->titleLabel()->frame().x, button->imageView()->frame().maxX() + 6);
    EXPECT_NEAR(button->imageView()->frame().x, 200 - button->titleLabel()->frame().maxX(), 1e-9);
}

// Switches

TEST_F(ControlTest, ATapTurnsASwitch) {
    const auto control = shown<UISwitch>({100, 100, 0, 0});
    EXPECT_EQ(control->frame(), (Rect{100, 100, 51, 31}));
    EXPECT_FALSE(control->isOn());
    finger.tap({110, 110});
    EXPECT_TRUE(control->isOn());
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside", "changed"));
    finger.tap({110, 110});
    EXPECT_FALSE(control->isOn());
}

TEST_F(ControlTest, TheThumbOfASwitchSlidesAcross) {
    const auto control = shown<UISwitch>({100, 100, 0, 0});
    const auto& thumb = control->subviews().back();
    EXPECT_EQ(thumb->frame().x, 1.5);
    control->setOnAnimated(true);
    EXPECT_EQ(thumb->frame().maxX(), 49.5);
    loop.advance(0.125);
    EXPECT_NEAR(std::get<Point>(thumb->layer()->presented(LayerProperty::Position)).x, 25.5, 0.1);
    loop.advance(0.125);
    EXPECT_FALSE(thumb->layer()->hasAnimations());
}

TEST_F(ControlTest, ADragTurnsASwitchOnceWhereverItEnds) {
    const auto control = shown<UISwitch>({100, 100, 0, 0});
    panAround();
    finger.down({110, 110});
    finger.moveTo({145, 110}, 3);
    EXPECT_TRUE(control->isOn());
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside", "changed"));
    finger.down({145, 110});
    finger.moveTo({105, 110}, 3);
    finger.moveTo({145, 110}, 3);
    finger.up();
    EXPECT_TRUE(control->isOn());
    EXPECT_THAT(transcript.take(), ElementsAre("down", "up inside"));
}

TEST_F(ControlTest, SettingASwitchTellsNobody) {
    const auto control = shown<UISwitch>({100, 100, 0, 0});
    control->setOn(true);
    control->setOnAnimated(false);
    loop.advance(1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

// Sliders

TEST_F(ControlTest, ASliderKeepsItsValueWithinItsLimits) {
    UISlider slider;
    slider.setMaximumValue(10);
    slider.setValue(12);
    EXPECT_EQ(slider.value(), 10);
    slider.setMinimumValue(20);
    EXPECT_EQ(slider.value(), 20);
    EXPECT_EQ(slider.maximumValue(), 20);
    slider.setMaximumValue(40);
    slider.setValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(slider.value(), 20);
}

TEST_F(ControlTest, ASliderShowsItsValue) {
    const auto slider = shown<UISlider>({100, 100, 228, 31});
    slider->setValue(0.25F);
    EXPECT_EQ(slider->subviews().back()->frame(), (Rect{50, 1.5, 28, 28}));
}

TEST_F(ControlTest, DraggingASliderMovesItsValueAlong) {
    const auto slider = shown<UISlider>({100, 100, 228, 31});
    slider->setValue(0.25F);
    panAround();
    finger.down({165, 115});
    finger.moveTo({215, 400});
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    finger.moveTo({1000, 400});
    EXPECT_FLOAT_EQ(slider->value(), 1);
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("down", "changed", "changed", "up inside"));
}

TEST_F(ControlTest, ASliderThatIsNotContinuousTellsItsValueAtTheEnd) {
    const auto slider = shown<UISlider>({100, 100, 228, 31});
    slider->setContinuous(false);
    finger.down({115, 115});
    finger.moveTo({215, 115}, 4);
    EXPECT_THAT(transcript.take(), ElementsAre("down"));
    finger.up();
    EXPECT_THAT(transcript.take(), ElementsAre("changed", "up inside"));
}

TEST_F(ControlTest, ADisabledSliderLeavesTheDragToOthers) {
    const auto slider = shown<UISlider>({100, 100, 228, 31});
    slider->setEnabled(false);
    panAround();
    finger.down({115, 115});
    finger.moveTo({215, 115}, 4);
    finger.up();
    EXPECT_EQ(slider->value(), 0);
    EXPECT_THAT(transcript.take(), ElementsAre("panned around"));
}

// State dumps

TEST_F(ControlTest, DescribesItsOwnProperties) {
    const auto slider = shown<UISlider>({100, 100, 228, 31});
    slider->setValue(0.5F);
    nlohmann::json properties;
    slider->describeProperties(properties);
    EXPECT_EQ(properties["value"], 0.5);
    EXPECT_EQ(properties["enabled"], true);
    EXPECT_FALSE(properties.contains("frame"));
}

} // namespace
} // namespace toolkit
