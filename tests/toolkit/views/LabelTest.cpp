#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class LabelTest : public support::ToolkitTest {
protected:
    std::vector<std::string> drawn() {
        RecordingCanvas canvas;
        label.drawContent(canvas, {{}, label.bounds().size()});
        return canvas.lines();
    }
    /// How large the text is in a line of its own.
    static Size natural(const std::string& text, double size) {
        TextStyle style;
        style.font = Font::system(size);
        return TextLayout(text, style, -1).size();
    }

    UILabel label{{0, 0, 200, 50}};
};

TEST_F(LabelTest, DrawsItsTextInTheMiddleOfItsHeight) {
    label.setText("Song");
    label.setFont(Font::system(20, FontWeight::Semibold));
    label.setTextColor(Color::rgba(1, 0, 0));
    TextStyle style;
    style.font = label.font();
    const double top = (50 - TextLayout("Song", style, 200).size().height) / 2;
    std::ostringstream expected;
    expected << "drawText \"Song\" size 20 weight 600 (0, " << top << ") rgba(1, 0, 0, 1)";
    EXPECT_THAT(drawn(), ElementsAre(expected.str()));
}

TEST_F(LabelTest, WithoutTextItDrawsNothing) {
    EXPECT_FALSE(label.drawsContent());
    EXPECT_EQ(label.sizeThatFits({100, 100}), Size());
    label.setText("Song");
    EXPECT_TRUE(label.drawsContent());
}

TEST_F(LabelTest, IsPaintedAgainOnlyWhenSomethingHasChanged) {
    label.setText("Song");
    const auto version = label.layer()->contentVersion();
    label.setText("Song");
    label.setFont(Font::system(17));
    label.setTextColor(Color::black());
    label.setTextAlignment(TextAlignment::Left);
    label.setNumberOfLines(1);
    label.setMinimumScaleFactor(1);
    EXPECT_EQ(label.layer()->contentVersion(), version);
    label.setTextAlignment(TextAlignment::Center);
    EXPECT_GT(label.layer()->contentVersion(), version);
}

TEST_F(LabelTest, OneLineAsksForAllItsWidth) {
    label.setText("A rather long title of a song");
    EXPECT_EQ(label.sizeThatFits({10, 10}), natural("A rather long title of a song", 17));
    label.sizeToFit();
    EXPECT_EQ(label.bounds().size(), natural("A rather long title of a song", 17));
}

TEST_F(LabelTest, SeveralLinesFillTheWidthThatThereIs) {
    label.setText("A rather long title of a song");
    label.setNumberOfLines(0);
    const Size fitted = label.sizeThatFits({80, 1000});
    EXPECT_LE(fitted.width, 80);
    EXPECT_GT(fitted.height, 2 * natural("A", 17).height);
    label.setNumberOfLines(2);
    EXPECT_NEAR(label.sizeThatFits({80, 1000}).height, 2 * natural("A", 17).height, 1);
}

TEST_F(LabelTest, ShrinksItsTypeUntilTheTextFits) {
    label.setText("Wide");
    const double width = natural("Wide", 17).width;
    label.setFrame({0, 0, width * 0.8, 50});
    EXPECT_THAT(drawn(), ElementsAre(HasSubstr("size 17 ")));
    label.setMinimumScaleFactor(0.5);
    EXPECT_THAT(drawn(), ElementsAre(HasSubstr("size 13.6 ")));
    label.setFrame({0, 0, width * 0.2, 50});
    EXPECT_THAT(drawn(), ElementsAre(HasSubstr("size 8.5 ")));
    label.setFrame({0, 0, width * 2, 50});
    EXPECT_THAT(drawn(), ElementsAre(HasSubstr("size 17 ")));
}

TEST_F(LabelTest, TouchesPassThroughIt) {
    auto window = shownWindow({0, 0, 300, 300});
    auto text = std::make_shared<UILabel>(Rect(0, 0, 200, 50));
    text->setText("Song");
    window->addSubview(text);
    EXPECT_EQ(window->hitTest({10, 10}), window.get());
    text->setUserInteractionEnabled(true);
    EXPECT_EQ(window->hitTest({10, 10}), text.get());
}

// Pictures

TEST_F(LabelTest, APictureBringsItsSizeUnlessItHasAFrame) {
    const auto image = Image::draw({30, 20}, 2, [](Canvas&) {});
    EXPECT_EQ(UIImageView({}, image).frame(), (Rect{0, 0, 30, 20}));
    EXPECT_EQ(UIImageView({5, 5, 10, 10}, image).frame(), (Rect{5, 5, 10, 10}));
    UIImageView view({5, 5, 10, 10}, image);
    view.sizeToFit();
    EXPECT_EQ(view.frame(), (Rect{5, 5, 30, 20}));
    view.setImage(nullptr);
    EXPECT_EQ(view.image(), nullptr);
    EXPECT_EQ(view.sizeThatFits({50, 50}), Size());
}

TEST_F(LabelTest, TouchesPassThroughAPicture) {
    const UIImageView view({0, 0, 30, 20}, Image::draw({30, 20}, 1, [](Canvas&) {}));
    EXPECT_FALSE(view.isUserInteractionEnabled());
    EXPECT_FALSE(view.takesTouchAt({5, 5}));
}

} // namespace
} // namespace toolkit
