#include "hosts/script/StateDump.h"

#include "hosts/script/NotificationRecorder.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UITextField.h"
#include "platform/toolkit/views/UITextView.h"
#include "platform/toolkit/views/UIVisualEffectView.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <gtest/gtest.h>

#include <limits>

namespace script {
namespace {

using nlohmann::json;
using toolkit::UIView;

class describedView : public UIView {
    RUNTIME_CLASS()
public:
    describedView() : UIView({1, 2, 3, 4}) {}
    void describeProperties(json& properties) const override {
        UIView::describeProperties(properties);
        properties["showed"] = true;
    }
};

runtime::Class& describedView::staticClass() {
    static auto& cls = runtime::ClassBuilder<describedView>("describedView", &UIView::staticClass()).build();
    return cls;
}

class StateDumpTest : public testing::Test {
protected:
    StateDumpTest() {
        foundation::RunLoop::setMain(&loop);
        toolkit::WindowServer::shared().attachToMainRunLoop();
        toolkit::UIScreen::mainScreen().setSize({375, 667});
        toolkit::UIScreen::mainScreen().setScale(2);
        foundation::setLogToStandardError(false);
    }
    ~StateDumpTest() override { foundation::RunLoop::setMain(nullptr); }

    foundation::VirtualRunLoop loop;
};

TEST_F(StateDumpTest, DescribesWhatEveryViewHas) {
    describedView view;
    view.setTransform({0, 1, -1, 0, 5, 6});
    view.setAlpha(0.25);
    view.setHidden(true);
    view.setUserInteractionEnabled(false);
    view.setBackgroundColor(toolkit::Color::rgba(0.1, 0.2, 0.3, 0.4));
    view.layer()->setCornerRadius(7);
    view.addSubview(std::make_shared<UIView>(toolkit::Rect(9, 8, 7, 6)));

    const json fields = describeView(view);
    EXPECT_EQ(fields["class"], "describedView");
    const auto frame = view.frame();
    EXPECT_EQ(fields["frame"], json({frame.x, frame.y, frame.width, frame.height}));
    EXPECT_EQ(fields["bounds"], json({0.0, 0.0, 3.0, 4.0}));
    EXPECT_EQ(fields["alpha"], 0.25);
    EXPECT_EQ(fields["hidden"], true);
    EXPECT_EQ(fields["userInteraction"], false);
    EXPECT_EQ(fields["background"], json({0.1, 0.2, 0.3, 0.4}));
    EXPECT_EQ(fields["transform"], json({0.0, 1.0, -1.0, 0.0, 5.0, 6.0}));
    EXPECT_EQ(fields["cornerRadius"], 7.0);
    EXPECT_EQ(fields["properties"]["showed"], true);
    EXPECT_FALSE(fields.contains("presentation"));
    ASSERT_EQ(fields["subviews"].size(), 1u);
    EXPECT_EQ(fields["subviews"][0]["class"], "UIView");
    EXPECT_EQ(fields["subviews"][0]["frame"], json({9.0, 8.0, 7.0, 6.0}));
    EXPECT_TRUE(fields["subviews"][0]["background"].is_null());
}

TEST_F(StateDumpTest, KeepsNumbersUnrounded) {
    UIView view({0.1 + 0.2, 1.0 / 3, 100, 100});
    const json read = json::parse(writeJson(describeView(view)));
    EXPECT_EQ(read["frame"][0].get<double>(), view.frame().x);
    EXPECT_EQ(read["frame"][1].get<double>(), view.frame().y);
}

TEST_F(StateDumpTest, DescribesTextsOfLabelsButtonsAndTextViews) {
    toolkit::UILabel label;
    label.setText("a label");
    label.setFont(toolkit::Font::system(31));
    EXPECT_EQ(describeView(label)["text"], "a label");
    EXPECT_EQ(describeView(label)["fontSize"], 31.0);

    toolkit::UIButton button;
    button.setTitle("a button");
    EXPECT_EQ(describeView(button)["text"], "a button");
    EXPECT_EQ(describeView(button)["fontSize"], button.titleLabel()->font().size);

    toolkit::UITextView textView;
    textView.setText("lines\nof text");
    textView.setFont(toolkit::Font::system(13));
    EXPECT_EQ(describeView(textView)["text"], "lines\nof text");
    EXPECT_EQ(describeView(textView)["fontSize"], 13.0);
    EXPECT_TRUE(describeView(textView).contains("contentSize"));

    toolkit::UITextField field;
    field.setText("typed");
    EXPECT_EQ(describeView(field)["text"], "typed");
    EXPECT_FALSE(describeView(UIView()).contains("text"));
}

TEST_F(StateDumpTest, DescribesImageEffectAndScrollViews) {
    toolkit::UIImageView imageView;
    EXPECT_TRUE(describeView(imageView)["image"].is_null());
    imageView.setImage(toolkit::Image::draw({20, 10}, 2, [](toolkit::Canvas&) {}));
    EXPECT_EQ(describeView(imageView)["image"], json({20.0, 10.0}));

    toolkit::UIVisualEffectView effectView;
    EXPECT_TRUE(describeView(effectView)["effect"].is_null());
    const auto light = toolkit::VisualEffect::blur(toolkit::BlurEffectStyle::Light);
    const auto dark = toolkit::VisualEffect::blur(toolkit::BlurEffectStyle::Dark);
    effectView.setEffect(light);
    EXPECT_EQ(describeView(effectView)["effect"], "light");
    effectView.setEffect(dark);
    EXPECT_EQ(describeView(effectView)["effect"], "dark");
    effectView.setEffect(toolkit::VisualEffect::vibrancyFor(light));
    EXPECT_EQ(describeView(effectView)["effect"], "vibrancy-light");
    effectView.setEffect(toolkit::VisualEffect::vibrancyFor(dark));
    EXPECT_EQ(describeView(effectView)["effect"], "vibrancy-dark");

    toolkit::UIScrollView scrollView({0, 0, 100, 100});
    scrollView.setContentSize({100, 400});
    scrollView.setContentInset({1, 2, 3, 4});
    scrollView.setContentOffset({0, 55.5});
    const json fields = describeView(scrollView);
    EXPECT_EQ(fields["contentOffset"], json({0.0, 55.5}));
    EXPECT_EQ(fields["contentSize"], json({100.0, 400.0}));
    EXPECT_EQ(fields["contentInset"], json({1.0, 2.0, 3.0, 4.0}));
}

TEST_F(StateDumpTest, AddsWhatIsShownWhileAnAnimationRuns) {
    auto window = std::make_shared<toolkit::UIWindow>(toolkit::Rect(0, 0, 375, 667));
    window->setHidden(false);
    auto view = std::make_shared<UIView>(toolkit::Rect(0, 0, 100, 100));
    window->addSubview(view);
    loop.turn();
    UIView::animate(1, 0, toolkit::AnimationCurve::Linear, [&] {
        view->setFrame({200, 0, 100, 100});
        view->setAlpha(0);
    });
    loop.advance(0.25);
    json fields = describeView(*view);
    EXPECT_EQ(fields["frame"], json({200.0, 0.0, 100.0, 100.0}));
    EXPECT_EQ(fields["alpha"], 0.0);
    EXPECT_NEAR(fields["presentation"]["frame"][0].get<double>(), 50, 1e-6);
    EXPECT_NEAR(fields["presentation"]["alpha"].get<double>(), 0.75, 1e-6);
    loop.advance(1);
    EXPECT_FALSE(describeView(*view).contains("presentation"));
}

TEST_F(StateDumpTest, ListsWindowsFromBackToFrontHiddenOnesIncluded) {
    toolkit::UIWindow high({0, 0, 10, 10}), low({0, 0, 20, 20}), hidden({0, 0, 30, 30});
    high.setWindowLevel(2001);
    low.setWindowLevel(5);
    hidden.setWindowLevel(100);
    high.setHidden(false);
    low.setHidden(false);
    const json state = describeState({}, {});
    std::vector<double> levels;
    for (const auto& window : state["windows"])
        levels.push_back(window["level"]);
    EXPECT_EQ(levels, (std::vector<double>{5, 100, 2001}));
    EXPECT_EQ(state["windows"][1]["hidden"], true);
    EXPECT_EQ(state["windows"][2]["hidden"], false);
}

TEST_F(StateDumpTest, DescribesTheHost) {
    HostState host;
    host.time = 1.25;
    host.interfaceOrientation = 3;
    host.deviceOrientation = toolkit::DeviceOrientation::FaceUp;
    host.frontmost = "com.apple.mobilenotes";
    host.locked = true;
    host.displayOn = false;
    host.keyboard = {0, 451, 375, 216};
    const json state = describeState(host, {});
    EXPECT_EQ(state["time"], 1.25);
    EXPECT_EQ(state["screen"],
              json({{"width", 375.0}, {"height", 667.0}, {"scale", 2.0}, {"interface", 3}, {"device", 5}}));
    EXPECT_EQ(state["frontmost"], "com.apple.mobilenotes");
    EXPECT_EQ(state["locked"], true);
    EXPECT_EQ(state["display"], false);
    EXPECT_EQ(state["keyboard"], json({0.0, 451.0, 375.0, 216.0}));
}

TEST_F(StateDumpTest, ListsEveryLogLineAndNotification) {
    foundation::clearLog();
    NotificationRecorder recorder;
    foundation::log("one line");
    auto& center = foundation::NotificationCenter::defaultCenter();
    center.post("first", foundation::PropertyList::Dictionary{{"name", "invoked"}});
    center.post("second");
    const json state = describeState({}, recorder.notifications());
    EXPECT_EQ(state["log"], json({"one line"}));
    EXPECT_EQ(state["notifications"], json::array({{{"name", "first"}, {"object", {{"name", "invoked"}}}},
                                                   {{"name", "second"}, {"object", nullptr}}}));
}

TEST_F(StateDumpTest, DescribesValuesOfEveryType) {
    using foundation::PropertyList;
    EXPECT_EQ(describeValue(true), json(true));
    EXPECT_EQ(describeValue(7), json(7));
    EXPECT_EQ(describeValue(0.5), json(0.5));
    EXPECT_EQ(describeValue("text"), json("text"));
    EXPECT_EQ(describeValue(PropertyList::Data{'h', 'i'}), json("aGk="));
    EXPECT_EQ(describeValue(PropertyList::Date{3.5}), json(3.5));
    EXPECT_EQ(describeValue(PropertyList::Array{1, "x", PropertyList()}), json({1, "x", nullptr}));
    EXPECT_EQ(describeValue(PropertyList()), json(nullptr));
}

TEST_F(StateDumpTest, WritesHostileTextsAndNumbersWithoutFailing) {
    toolkit::UILabel label;
    label.setText("broken \xff\xc3 and \x01 \"quoted\"");
    label.setFrame({std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1, 1});
    foundation::log("broken \xfe line");
    const json state = describeState({}, {{"name \xff", foundation::PropertyList("\xff")}});
    EXPECT_NO_THROW({
        const json read = json::parse(writeJson(state));
        EXPECT_EQ(read["notifications"][0]["object"], "\xef\xbf\xbd");
        const json view = json::parse(writeJson(describeView(label)));
        EXPECT_TRUE(view["frame"][0].is_null());
    });
    foundation::clearLog();
}

} // namespace
} // namespace script
