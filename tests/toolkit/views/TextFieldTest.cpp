#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "platform/toolkit/text/TextBoundaries.h"
#include "platform/toolkit/views/TextCaret.h"
#include "platform/toolkit/views/UITextField.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
const std::string accented = "e\u0301"; // a letter and its accent

TEST(TextBoundaries, ACharacterIsWhatAUserTakesForOne) {
    const std::string text = "a" + accented + family + "z";
    std::vector<std::size_t> stops;
    for (std::size_t index = 0; index < text.size();)
        stops.push_back(index = nextCharacter(text, index));
    const std::vector<std::size_t> expected{1, 1 + accented.size(), 1 + accented.size() + family.size(),
                                            text.size()};
    EXPECT_EQ(stops, expected);
    std::vector<std::size_t> back;
    for (std::size_t index = text.size(); index > 0;)
        back.push_back(index = previousCharacter(text, index));
    EXPECT_THAT(back, ElementsAre(expected[2], expected[1], expected[0], 0u));
}

TEST(TextBoundaries, TheEndsStayWhereTheyAre) {
    EXPECT_EQ(nextCharacter("ab", 2), 2u);
    EXPECT_EQ(nextCharacter("ab", 99), 2u);
    EXPECT_EQ(previousCharacter("ab", 0), 0u);
    EXPECT_EQ(previousCharacter("", 5), 0u);
}

TEST(TextBoundaries, ALongTextIsLookedAtOnlyAroundTheIndex) {
    std::string text;
    while (text.size() < 4'000'000)
        text += "\u4E2D";
    EXPECT_EQ(nextCharacter(text, 1'999'998), 2'000'001u);
    EXPECT_EQ(previousCharacter(text, 1'999'998), 1'999'995u);
    // A character of a million accents is cut up, but every step goes on and stays between code points.
    std::string accents = "e";
    while (accents.size() < 1000)
        accents += "\u0301";
    std::size_t steps = 0;
    for (std::size_t index = accents.size(); index > 0; ++steps) {
        const std::size_t before = index;
        index = previousCharacter(accents, index);
        ASSERT_LT(index, before);
        ASSERT_TRUE(index == 0 || index % 2 == 1);
    }
    EXPECT_LT(steps, 20u);
}

class TextFieldTest : public support::ToolkitTest {
protected:
    TextFieldTest() {
        window->addSubview(field);
        field->addHandler(ControlEvent::EditingChanged,
                          [this] { transcript.add("edited: ", field->text()); });
        loop.turn();
    }
    /// What the field draws of text, and where.
    std::vector<std::string> drawn() {
        RecordingCanvas canvas;
        field->drawContent(canvas, field->bounds());
        std::vector<std::string> lines;
        for (const auto& command : canvas.commands())
            if (command.name == "drawText")
                lines.push_back(command.arguments);
        return lines;
    }
    UIView& caret() { return *field->subviews().front(); }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<UITextField> field = std::make_shared<UITextField>(Rect(10, 100, 200, 30));
    support::Finger finger{loop};
};

TEST_F(TextFieldTest, ATapMakesItTheFirstResponder) {
    std::vector<TextInput*> told;
    const auto observing = TextInput::addObserver([&](TextInput* input) { told.push_back(input); });
    finger.tap({50, 110});
    EXPECT_TRUE(field->isFirstResponder());
    EXPECT_EQ(TextInput::current(), field.get());
    finger.tap({50, 110});
    field->resignFirstResponder();
    field->resignFirstResponder();
    EXPECT_EQ(TextInput::current(), nullptr);
    EXPECT_THAT(told, ElementsAre(field.get(), nullptr));
}

TEST_F(TextFieldTest, OneFieldTakesOverFromAnother) {
    auto other = std::make_shared<UITextField>(Rect(10, 200, 200, 30));
    window->addSubview(other);
    std::vector<TextInput*> told;
    const auto observing = TextInput::addObserver([&](TextInput* input) { told.push_back(input); });
    field->becomeFirstResponder();
    other->becomeFirstResponder();
    EXPECT_TRUE(caret().isHidden());
    EXPECT_THAT(told, ElementsAre(field.get(), other.get()));
}

TEST_F(TextFieldTest, AFieldThatIsLetGoIsNoLongerTheFirstResponder) {
    field->becomeFirstResponder();
    field->removeFromSuperview();
    EXPECT_EQ(TextInput::current(), nullptr);
    auto alone = std::make_unique<UITextField>();
    alone->becomeFirstResponder();
    alone.reset();
    EXPECT_EQ(TextInput::current(), nullptr);
}

TEST_F(TextFieldTest, TypesAtTheCaret) {
    field->becomeFirstResponder();
    for (const char* key : {"V", "e", "a"})
        field->insertText(key);
    field->moveCaret(-1);
    field->insertText("l");
    field->deleteBackward();
    EXPECT_THAT(transcript.take(),
                ElementsAre("edited: V", "edited: Ve", "edited: Vea", "edited: Vela", "edited: Vea"));
    field->moveCaret(-99);
    field->deleteBackward();
    field->moveCaret(99);
    field->insertText("!");
    EXPECT_THAT(transcript.take(), ElementsAre("edited: Vea!"));
}

TEST_F(TextFieldTest, DeletesWholeCharacters) {
    field->setText("a" + accented + family);
    field->deleteBackward();
    EXPECT_EQ(field->text(), "a" + accented);
    field->deleteBackward();
    EXPECT_EQ(field->text(), "a");
}

TEST_F(TextFieldTest, KeepsItsTextInOneLineAndWhole) {
    field->setText("a\nb\tc");
    EXPECT_EQ(field->text(), "a b c");
    field->insertText("\xFF"
                      "d\r\ne");
    EXPECT_EQ(field->text(), "a b c\uFFFD"
                             "d  e");
}

TEST_F(TextFieldTest, TakesNoMoreThanALineHolds) {
    field->setText(std::string(UITextField::maximumBytes - 1, 'x'));
    transcript.take();
    field->insertText("\u00E9");
    EXPECT_EQ(field->text().size(), UITextField::maximumBytes - 1);
    field->insertText("yz");
    EXPECT_EQ(field->text().size(), UITextField::maximumBytes);
    EXPECT_EQ(field->text().back(), 'y');
}

TEST_F(TextFieldTest, TheReturnKeyEndsTheEditing) {
    field->becomeFirstResponder();
    field->insertText("\n");
    EXPECT_EQ(TextInput::current(), nullptr);
    EXPECT_EQ(field->text(), "");
}

TEST_F(TextFieldTest, ItsCaretBlinksWhileItIsTheFirstResponder) {
    EXPECT_TRUE(caret().isHidden());
    field->becomeFirstResponder();
    EXPECT_FALSE(caret().isHidden());
    EXPECT_EQ(caret().frame().width, 2);
    loop.advance(0.49);
    EXPECT_FALSE(caret().isHidden());
    loop.advance(0.02);
    EXPECT_TRUE(caret().isHidden());
    loop.advance(0.5);
    EXPECT_FALSE(caret().isHidden());
    field->resignFirstResponder();
    const auto changes = Layer::changeCount();
    loop.advance(3);
    EXPECT_TRUE(caret().isHidden());
    EXPECT_EQ(Layer::changeCount(), changes);
}

TEST_F(TextFieldTest, TypingLightsTheCaretAndMovesIt) {
    field->becomeFirstResponder();
    const double before = caret().frame().x;
    loop.advance(0.6);
    EXPECT_TRUE(caret().isHidden());
    field->insertText("W");
    EXPECT_FALSE(caret().isHidden());
    EXPECT_GT(caret().frame().x, before + 5);
}

TEST_F(TextFieldTest, ATapPlacesTheCaret) {
    field->setText("WWWW");
    TextStyle style;
    style.font = field->font();
    const double second = TextLayout("WWWW", style, -1).caretRect(2).x;
    finger.tap({10 + 7 + second + 1, 110});
    field->insertText("|");
    EXPECT_EQ(field->text(), "WW|WW");
}

TEST_F(TextFieldTest, LongTextScrollsSoThatTheCaretStaysInSight) {
    field->becomeFirstResponder();
    for (int i = 0; i < 100; ++i) {
        field->insertText("m");
        EXPECT_GE(caret().frame().x, 0);
        EXPECT_LE(caret().frame().maxX(), 200);
    }
    field->moveCaret(-100);
    EXPECT_NEAR(caret().frame().x, 7, 0.5);
}

TEST_F(TextFieldTest, ShowsThePlaceholderUntilThereIsText) {
    EXPECT_THAT(drawn(), IsEmpty());
    field->setPlaceholder("Search");
    EXPECT_THAT(drawn(), ElementsAre(testing::StartsWith("\"Search\"")));
    field->setText("a");
    EXPECT_THAT(drawn(), ElementsAre(testing::StartsWith("\"a\"")));
}

TEST_F(TextFieldTest, ADisabledOneTakesNoText) {
    field->becomeFirstResponder();
    field->setEnabled(false);
    EXPECT_EQ(TextInput::current(), nullptr);
    finger.tap({50, 110});
    EXPECT_EQ(TextInput::current(), nullptr);
}

} // namespace
} // namespace toolkit
