#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "platform/toolkit/views/TextBlocks.h"
#include "platform/toolkit/views/TextCaret.h"
#include "platform/toolkit/views/TextContentView.h"
#include "platform/toolkit/views/UITextView.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string repeated(const std::string& text, std::size_t times) {
    std::string result;
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

/// The blocks' texts joined as they follow each other from top to bottom.
std::string shownText(TextBlocks& blocks) {
    std::string text;
    blocks.forEachWithin(0, blocks.height() + 1e6,
                         [&](const TextLayout& layout, double) { text += layout.text() + "|"; });
    return text;
}

class TextBlocksTest : public support::ToolkitTest {
protected:
    TextBlocksTest() { blocks.setWidth(300); }
    /// Whether the edited blocks stand as blocks made afresh from the same text would.
    void expectAsMadeAfresh() {
        TextBlocks fresh;
        fresh.setWidth(300);
        fresh.setText(blocks.text());
        blocks.measure(0, 1e9);
        fresh.measure(0, 1e9);
        EXPECT_NEAR(blocks.height(), fresh.height(), 1.0);
    }
    TextBlocks blocks;
};

TEST_F(TextBlocksTest, AShortTextIsOneBlock) {
    blocks.setText("one\ntwo\n");
    EXPECT_EQ(shownText(blocks), "one\ntwo\n|");
    TextStyle style;
    style.numberOfLines = 0;
    style.lineBreak = LineBreak::WordWrap;
    EXPECT_EQ(blocks.height(), TextLayout("one\ntwo\n", style, 300).size().height);
}

TEST_F(TextBlocksTest, ALongTextIsBrokenAtLines) {
    const std::string line(99, 'x');
    blocks.setText(repeated(line + "\n", 100));
    std::vector<std::string> texts;
    blocks.forEachWithin(0, 1e9, [&](const TextLayout& layout, double) { texts.push_back(layout.text()); });
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_LE(texts[0].size(), TextBlocks::blockBytes);
    EXPECT_EQ(texts[0] + "\n" + texts[1] + "\n" + texts[2], blocks.text());
}

TEST_F(TextBlocksTest, ALineLongerThanABlockIsBrokenAtASpaceOrBetweenCharacters) {
    blocks.setText(repeated("word ", 2000));
    blocks.forEachWithin(0, 1e9,
                         [&](const TextLayout& layout, double) { EXPECT_EQ(layout.text().size() % 5, 0u); });
    blocks.setText(repeated("\u4E2D", 4000));
    blocks.forEachWithin(0, 1e9, [&](const TextLayout& layout, double) {
        EXPECT_EQ(layout.text().size() % 3, 0u);
        EXPECT_EQ(layout.text().find("\uFFFD"), std::string::npos);
    });
}

TEST_F(TextBlocksTest, AnEndlessWordIsBrokenToo) {
    blocks.setText("short words first " + std::string(1000, 'x') + "\nnext");
    std::vector<std::string> texts;
    blocks.forEachWithin(0, 1e9, [&](const TextLayout& layout, double) { texts.push_back(layout.text()); });
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0], "short words first " + std::string(256, 'x'));
    EXPECT_EQ(texts[3], std::string(232, 'x') + "\nnext");
}

TEST_F(TextBlocksTest, TheBlocksLieOneBelowTheOther) {
    blocks.setText(repeated("line of a song\n", 2000));
    double expected = 0;
    blocks.forEachWithin(0, 1e9, [&](const TextLayout& layout, double top) {
        EXPECT_NEAR(top, expected, 1e-6);
        expected = top + layout.size().height;
    });
    EXPECT_NEAR(blocks.height(), expected, 1e-6);
}

TEST_F(TextBlocksTest, FindsCaretsAndPointsInEveryBlock) {
    blocks.setText(repeated("line of a song\n", 2000));
    blocks.measure(0, 1e9);
    for (const std::size_t index : {0ul, 5ul, 4094ul, 4096ul, 15000ul, 29999ul, 30000ul}) {
        const Rect caret = blocks.caretRect(index);
        EXPECT_EQ(blocks.indexAt({caret.x, caret.y + caret.height / 2}), index);
    }
}

TEST_F(TextBlocksTest, EditsAsIfMadeAfresh) {
    blocks.setText(repeated("line of a song\n", 1000));
    blocks.replace(7000, 0, "typed\ntext");
    expectAsMadeAfresh();
    blocks.replace(3000, 9000, "");
    expectAsMadeAfresh();
    blocks.replace(100, 1, repeated("pasted line\n", 3000));
    expectAsMadeAfresh();
    blocks.replace(0, blocks.text().size(), "");
    EXPECT_EQ(blocks.text(), "");
    expectAsMadeAfresh();
    blocks.replace(0, 0, "again");
    EXPECT_EQ(shownText(blocks), "again|");
}

TEST_F(TextBlocksTest, WhatIsLeftEmptyOfALongLineIsNoLine) {
    blocks.setText(repeated("word ", 2000));
    std::vector<std::size_t> sizes;
    blocks.forEachWithin(0, 1e9,
                         [&](const TextLayout& layout, double) { sizes.push_back(layout.text().size()); });
    ASSERT_EQ(sizes.size(), 3u);
    blocks.replace(sizes[0], sizes[1], "");
    std::size_t count = 0;
    blocks.forEachWithin(0, 1e9, [&](const TextLayout&, double) { ++count; });
    EXPECT_EQ(count, 2u);
}

class TextViewTest : public support::ToolkitTest {
protected:
    TextViewTest() {
        window->addSubview(view);
        view->setTextChangedHandler([this] { transcript.add("edited: ", view->text()); });
        loop.turn();
    }
    TextContentView& content() { return dynamic_cast<TextContentView&>(*view->subviews()[0]); }
    UIView& caret() { return *view->subviews()[1]; }
    /// The height of `count` lines.
    double lines(int count) {
        TextStyle style;
        style.font = view->font();
        style.numberOfLines = 0;
        style.lineBreak = LineBreak::WordWrap;
        return TextLayout(repeated("x\n", static_cast<std::size_t>(count) - 1) + "x", style, 300)
            .size()
            .height;
    }
    /// The texts and tops that the strips that cover the visible part draw, in the content's coordinates.
    bool visiblePartIsCovered() {
        const Rect visible = view->bounds();
        double covered = visible.y;
        for (const auto& strip : content().subviews())
            if (strip->frame().y <= covered && strip->frame().maxY() > covered)
                covered = strip->frame().maxY();
        return covered >= std::min(visible.maxY(), view->contentSize().height);
    }

    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<UITextView> view = std::make_shared<UITextView>(Rect(0, 0, 300, 400));
    support::Finger finger{loop};
};

TEST_F(TextViewTest, ItsContentIsAsHighAsItsText) {
    view->setText("one\ntwo\nthree");
    loop.turn();
    EXPECT_EQ(view->contentSize(), (Size{300, lines(3) + 16}));
    view->setText("");
    loop.turn();
    EXPECT_EQ(view->contentSize(), (Size{300, lines(1) + 16}));
}

TEST_F(TextViewTest, FitsItsTextIntoAWidth) {
    view->setText("one\ntwo");
    const Size fitted = view->sizeThatFits({300, std::numeric_limits<double>::max()});
    EXPECT_EQ(fitted.height, lines(2) + 16);
    EXPECT_LT(fitted.width, 100);
    view->setText(repeated("word ", 40));
    EXPECT_GT(view->sizeThatFits({100, 1e9}).height, 1.8 * view->sizeThatFits({300, 1e9}).height);
}

TEST_F(TextViewTest, BreaksItsLinesAnewWhenItsWidthChanges) {
    view->setText(repeated("word ", 40));
    loop.turn();
    const double before = view->contentSize().height;
    view->setFrame({0, 0, 150, 400});
    loop.turn();
    EXPECT_GT(view->contentSize().height, 1.5 * before);
    EXPECT_EQ(view->contentSize().width, 150);
}

TEST_F(TextViewTest, DrawsTheStripsThatAreSeenAndNoOthers) {
    view->setText(repeated("line\n", 500));
    loop.turn();
    EXPECT_EQ(content().stripCount(), 1u);
    for (const double y : {100.0, 400.0, 3333.0, 9000.0, 50.0}) {
        view->setContentOffset({0, y});
        loop.turn();
        EXPECT_TRUE(visiblePartIsCovered()) << y;
        EXPECT_LE(content().stripCount(), 2u);
    }
}

TEST_F(TextViewTest, WhatAnAnimatedOffsetPassesIsThere) {
    view->setText(repeated("line\n", 500));
    loop.turn();
    view->setContentOffsetAnimated({0, 900});
    loop.turn();
    EXPECT_EQ(content().stripCount(), 4u);
}

TEST_F(TextViewTest, AStripDrawsItsPartOfTheText) {
    view->setText("first\n" + repeated("line\n", 100) + "last");
    view->setTextColor(Color::white(1));
    loop.turn();
    const auto drawn = [&](const UIView& strip) {
        RecordingCanvas canvas;
        const_cast<UIView&>(strip).drawContent(canvas, {{}, strip.bounds().size()});
        return canvas.lines();
    };
    const auto lines = drawn(*content().subviews().front());
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1], "clipRect [0, 0, 300, 400]");
    EXPECT_THAT(lines[2], testing::StartsWith("drawText \"first\\n"));
    EXPECT_THAT(lines[2], testing::EndsWith("(5, 8) rgba(1, 1, 1, 1)"));
    view->setContentOffset({0, 800});
    loop.turn();
    EXPECT_THAT(drawn(*content().subviews().front())[2], testing::EndsWith("(5, -792) rgba(1, 1, 1, 1)"));
}

TEST_F(TextViewTest, AMegabyteIsShownWithoutLayingItAllOut) {
    view->setText(repeated("I am the walrus, they said, and nobody listened\n", 22000));
    loop.turn();
    EXPECT_GT(view->contentSize().height, 22000 * 15);
    view->setContentOffset({0, view->contentSize().height / 2});
    loop.turn();
    EXPECT_TRUE(visiblePartIsCovered());
    view->becomeFirstResponder();
    for (int i = 0; i < 20; ++i)
        view->insertText("x");
    EXPECT_TRUE(visiblePartIsCovered());
    EXPECT_LE(content().stripCount(), 3u);
    // The text has some 260 blocks; the beginning is measured when it is set, and a block for each edit.
    EXPECT_LT(content().blocks().layoutsMade(), 40u);
}

TEST_F(TextViewTest, OneEndlessLineIsShownToo) {
    view->setText(std::string(1'000'000, 'x'));
    loop.turn();
    EXPECT_GT(view->contentSize().height, 100'000);
    view->setContentOffset({0, view->contentSize().height - 400});
    loop.turn();
    EXPECT_TRUE(visiblePartIsCovered());
}

TEST_F(TextViewTest, BrokenTextIsMadeWhole) {
    view->setText("a\xFF\xFE"
                  "b");
    EXPECT_EQ(view->text(), "a\uFFFD\uFFFD"
                            "b");
}

// Editing

TEST_F(TextViewTest, ATapPlacesTheCaretAndMakesItTheFirstResponder) {
    view->setText("one\ntwo");
    loop.turn();
    finger.tap({280, 8 + lines(1) + 5});
    EXPECT_TRUE(view->isFirstResponder());
    view->insertText("!");
    finger.tap({6, 10});
    view->insertText(">");
    EXPECT_EQ(view->text(), ">one\ntwo!");
    view->resignFirstResponder();
}

TEST_F(TextViewTest, OneThatIsNotEditableTakesNoText) {
    view->setText("one");
    view->becomeFirstResponder();
    view->setEditable(false);
    EXPECT_EQ(TextInput::current(), nullptr);
    finger.tap({50, 20});
    EXPECT_EQ(TextInput::current(), nullptr);
    view->insertText("x");
    view->deleteBackward();
    EXPECT_EQ(view->text(), "one");
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(TextViewTest, TypesAtTheCaret) {
    view->setText("ab");
    view->becomeFirstResponder();
    view->moveCaret(-1);
    view->insertText("\n");
    view->deleteBackward();
    view->insertText("\u00E9");
    view->deleteBackward();
    EXPECT_THAT(transcript.take(), ElementsAre("edited: a\nb", "edited: ab",
                                               "edited: a\u00E9"
                                               "b",
                                               "edited: ab"));
}

TEST_F(TextViewTest, TheCaretStaysInSightWhileOneTypes) {
    view->becomeFirstResponder();
    for (int i = 0; i < 60; ++i) {
        view->insertText("line\n");
        EXPECT_GE(caret().frame().y, view->bounds().y);
        EXPECT_LE(caret().frame().maxY(), view->bounds().maxY());
    }
    EXPECT_GT(view->contentOffset().y, 500);
    EXPECT_TRUE(visiblePartIsCovered());
    view->moveCaret(-1000);
    EXPECT_EQ(view->contentOffset().y, 0);
}

TEST_F(TextViewTest, ItsCaretBlinksWhileItIsTheFirstResponder) {
    EXPECT_TRUE(caret().isHidden());
    view->becomeFirstResponder();
    EXPECT_FALSE(caret().isHidden());
    loop.advance(0.5);
    EXPECT_TRUE(caret().isHidden());
    view->resignFirstResponder();
    loop.advance(0.5);
    EXPECT_TRUE(caret().isHidden());
}

TEST_F(TextViewTest, ADragScrollsAndPlacesNoCaret) {
    view->setText(repeated("line\n", 100));
    loop.turn();
    finger.down({100, 300});
    finger.moveTo({100, 200}, 5);
    finger.up();
    EXPECT_EQ(TextInput::current(), nullptr);
    EXPECT_GT(view->contentOffset().y, 80);
}

/// A text view that puts short text in the middle, as one that shows a lyric does.
class CentredTextView : public UITextView {
public:
    using UITextView::UITextView;
    void setContentSize(Size size) override {
        UITextView::setContentSize(size);
        setContentInset({std::max(0.0, (bounds().height - size.height) / 2), 0, 0, 0});
    }
};

TEST_F(TextViewTest, AnOverriderMayCentreShortText) {
    auto centred = std::make_shared<CentredTextView>(Rect(0, 0, 300, 400));
    window->addSubview(centred);
    centred->setText("one");
    loop.turn();
    EXPECT_EQ(centred->contentOffset().y, -(400 - lines(1) - 16) / 2);
    centred->setText(repeated("line\n", 100));
    loop.turn();
    centred->setContentOffset({0, 500});
    centred->setText("one");
    loop.turn();
    EXPECT_EQ(centred->contentOffset().y, -(400 - lines(1) - 16) / 2);
}

} // namespace
} // namespace toolkit
