#include "platform/plugins/PluginTimer.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "platform/toolkit/views/TextInput.h"
#include "tests/plugins/PluginTest.h"
#include "tests/support/Finger.h"

namespace plugins {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* optionalMethods[] = {"appWillBecomeFirstResponder",
                                           "appBecomeActive",
                                           "appWillEnterBackground",
                                           "appDidEnterBackground",
                                           "tapTitleLabel",
                                           "velaInvoked",
                                           "velaDismissed"};

class PluginViewTest : public PluginTest {
protected:
    static std::vector<std::string> answered(const toolkit::UIView& view) {
        std::vector<std::string> names;
        for (const char* method : optionalMethods)
            if (runtime::respondsTo(view, method))
                names.emplace_back(method);
        return names;
    }
    static std::string line(const std::string& text) { return "org.example.Obliging: " + text; }
};

TEST_F(PluginViewTest, IsMadeWithAZeroFrame) {
    install("Obliging");
    const auto view = Bundle::open(pathOf("Obliging"))->makePrincipalView();
    ASSERT_TRUE(view);
    EXPECT_EQ(view->frame(), toolkit::Rect(0, 0, 0, 0));
    EXPECT_THAT(takeLog(), ElementsAre(line("created 0x0")));
}

TEST_F(PluginViewTest, RespondsToExactlyTheMethodsThatThePlugInHas) {
    install("Obliging");
    install("Bare");
    const auto obliging = Bundle::open(pathOf("Obliging"))->makePrincipalView();
    const auto bare = Bundle::open(pathOf("Bare"))->makePrincipalView();
    EXPECT_THAT(answered(*obliging), ElementsAre("appWillBecomeFirstResponder", "appBecomeActive",
                                                 "appDidEnterBackground", "velaInvoked"));
    EXPECT_THAT(answered(*bare), IsEmpty());
}

TEST_F(PluginViewTest, IsOfAClassNamedAsThePrincipalClass) {
    install("Bare");
    const auto view = Bundle::open(pathOf("Bare"))->makePrincipalView();
    EXPECT_EQ(view->isa().name(), "BareView");
    EXPECT_TRUE(view->isa().isSubclassOf(toolkit::UIView::staticClass()));
    EXPECT_EQ(&Bundle::open(pathOf("Bare"))->makePrincipalView()->isa(), &view->isa());
}

TEST_F(PluginViewTest, DoesNotStandInForAClassOfTheHost) {
    install("Bare");
    const auto view = Bundle::open(pathOf("Bare"))->makePrincipalView();
    EXPECT_EQ(runtime::Registry::shared().find("BareView"), nullptr);
}

TEST_F(PluginViewTest, RecordsWhichMethodsWereCalledWhen) {
    install("Obliging");
    const auto view = show("Obliging");
    send(*view, "velaInvoked");
    loop.advance(2);
    send(*view, "appDidEnterBackground");
    ASSERT_EQ(recordedCalls().size(), 2u);
    EXPECT_EQ(recordedCalls()[0].identifier, "org.example.Obliging");
    EXPECT_EQ(recordedCalls()[0].method, "velaInvoked");
    EXPECT_EQ(recordedCalls()[1].method, "appDidEnterBackground");
    EXPECT_NEAR(recordedCalls()[1].time - recordedCalls()[0].time, 2, 1e-9);
}

TEST_F(PluginViewTest, DrawsThroughTheContractsCanvasAndLeavesNothingSaved) {
    install("Obliging");
    const auto view = show("Obliging");
    ASSERT_TRUE(view->drawsContent());
    toolkit::RecordingCanvas canvas;
    view->drawContent(canvas, view->bounds());
    EXPECT_EQ(canvas.count("save"), 2u);
    EXPECT_EQ(canvas.count("restore"), 2u);
    EXPECT_EQ(canvas.count("fillRect"), 1u);
    EXPECT_EQ(canvas.count("drawText"), 1u);
}

TEST_F(PluginViewTest, NeedsNoPictureWhenThePlugInDrawsNothing) {
    install("Bare");
    EXPECT_FALSE(show("Bare")->drawsContent());
}

TEST_F(PluginViewTest, LaysOutWhenTheSizeChanges) {
    install("Obliging");
    const auto view = show("Obliging");
    EXPECT_THAT(takeLog(), Contains(line("layout")).Times(1));
    view->setFrame({0, 0, 300, 500});
    loop.turn();
    EXPECT_THAT(takeLog(), ElementsAre(line("layout")));
    view->setFrame({10, 10, 300, 500});
    loop.turn();
    EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(PluginViewTest, PassesTouchesOn) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    support::Finger finger(loop);
    finger.down({200, 300});
    finger.moveTo({210, 310});
    finger.up();
    EXPECT_THAT(takeLog(), ElementsAre(line("began 200,300"), line("moved 210,310"), line("ended 210,310")));
}

TEST_F(PluginViewTest, ChildViewsTakeTheirTouches) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    support::Finger finger(loop);
    finger.tap({20, 70});
    EXPECT_THAT(takeLog(), ElementsAre(line("area began 20,10"), line("area ended 20,10")));
    finger.tap({20, 10}); // a label takes none
    EXPECT_THAT(takeLog(), ElementsAre(line("began 20,10"), line("ended 20,10")));
}

TEST_F(PluginViewTest, ATapOnItIsNotTakenByTheTileAround) {
    install("Obliging");
    const auto view = show("Obliging");
    const auto tile = std::make_shared<toolkit::UITapGestureRecognizer>(nullptr, "appClicked");
    int taps = 0;
    tile->addHandler([&](toolkit::UIGestureRecognizer&) { ++taps; });
    view->superview()->addGestureRecognizer(tile);
    takeLog();
    support::Finger finger(loop);
    finger.tap({20, 70});
    EXPECT_THAT(takeLog(), ElementsAre(line("area began 20,10"), line("area ended 20,10")));
    finger.tap({200, 300});
    EXPECT_THAT(takeLog(), ElementsAre(line("began 200,300"), line("ended 200,300")));
    finger.tap({20, 40});
    EXPECT_THAT(takeLog(), ElementsAre(line("tapped")));
    EXPECT_EQ(taps, 0);
}

TEST_F(PluginViewTest, ADragThatAViewAroundTakesOverIsCancelled) {
    install("Obliging");
    const auto view = show("Obliging");
    view->superview()->addGestureRecognizer(
        std::make_shared<toolkit::UIPanGestureRecognizer>(nullptr, "panned:"));
    takeLog();
    support::Finger finger(loop);
    finger.down({20, 70});
    finger.moveTo({25, 70});
    finger.moveTo({60, 70});
    finger.moveTo({70, 70});
    finger.up();
    EXPECT_THAT(takeLog(), ElementsAre(line("area began 20,10"), line("area moved 25,10"),
                                       line("area cancelled 60,10")));
}

TEST_F(PluginViewTest, AButtonMayBeLetGoOfByItsOwnHandler) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    support::Finger finger(loop);
    finger.tap({20, 40});
    EXPECT_THAT(takeLog(), ElementsAre(line("tapped")));
    finger.tap({20, 40});
    EXPECT_THAT(takeLog(), ElementsAre(line("began 20,40"), line("ended 20,40")));
}

TEST_F(PluginViewTest, TextIsTypedWithThePhonesKeyboard) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    support::Finger finger(loop);
    finger.tap({20, 165});
    ASSERT_NE(toolkit::TextInput::current(), nullptr);
    toolkit::TextInput::current()->insertText("hi");
    finger.tap({20, 200});
    ASSERT_NE(toolkit::TextInput::current(), nullptr);
    toolkit::TextInput::current()->insertText("there");
    EXPECT_THAT(takeLog(),
                ElementsAre(line("typing"), line("field: hi"), line("typed"), line("text: there")));
    closeWindow();
}

TEST_F(PluginViewTest, ATimerRunsAsLongAsItIsKept) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    send(*view, "appBecomeActive");
    EXPECT_EQ(TimerState::running(), 1);
    loop.advance(1.5);
    EXPECT_THAT(takeLog(), ElementsAre(line("tick")));
    send(*view, "appDidEnterBackground");
    EXPECT_EQ(TimerState::running(), 0);
    loop.advance(5);
    EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(PluginViewTest, ATimerMayBeLetGoOfByItsOwnHandler) {
    install("Obliging");
    const auto view = show("Obliging");
    send(*view, "appBecomeActive");
    takeLog();
    loop.advance(10);
    EXPECT_THAT(takeLog(), ElementsAre(line("tick"), line("tick"), line("tick")));
    EXPECT_EQ(TimerState::running(), 0);
}

TEST_F(PluginViewTest, ReadsFilesOfItsBundle) {
    install("Obliging");
    const auto view = show("Obliging");
    takeLog();
    send(*view, "appWillBecomeFirstResponder");
    EXPECT_THAT(takeLog(), ElementsAre(line("words: one two three")));
}

TEST_F(PluginViewTest, KeepsItsFilesWhenItIsMadeAnew) {
    install("Obliging");
    for (int i = 0; i < 3; ++i)
        send(*Bundle::open(pathOf("Obliging"))->makePrincipalView(), "velaInvoked");
    EXPECT_EQ(PluginStorage("org.example.Obliging").read("count"), "3");
}

TEST_F(PluginViewTest, EndsThePlugInsViewWithItself) {
    install("Obliging");
    auto view = show("Obliging");
    send(*view, "appBecomeActive");
    takeLog();
    closeWindow();
    view = nullptr;
    EXPECT_THAT(takeLog(), ElementsAre(line("destroyed")));
    EXPECT_EQ(TimerState::running(), 0);
}

} // namespace
} // namespace plugins
