#include "platform/toolkit/text/TextLayout.h"

#include "platform/toolkit/text/Utf8.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace toolkit {
namespace {

class TextLayoutTest : public testing::Test {
protected:
    static void SetUpTestSuite() { setFontDirectory(VELA_SOURCE_DIR "/resources/fonts", true); }

    static TextStyle style(int lines, LineBreak lineBreak = LineBreak::TruncateTail,
                           TextAlignment alignment = TextAlignment::Left) {
        return {Font::system(17), alignment, lineBreak, lines};
    }
    static double lineHeight() { return TextLayout("A", style(1), -1).size().height; }

    /// The first and the last column in which a text leaves ink.
    static std::pair<int, int> inkColumns(const TextLayout& layout, int width, double scale = 1) {
        Painting painting(width, 200, scale);
        painting.canvas().drawText(layout, {0, 0}, white());
        int first = width, last = -1;
        for (int x = 0; x < width; ++x)
            for (int y = 0; y < 200; ++y)
                if (painting.at(x, y).alpha > 0) {
                    first = std::min(first, x);
                    last = x;
                }
        return {first, last};
    }
};

TEST_F(TextLayoutTest, MeasuresTheSystemFontInWholeHalfPoints) {
    // Inter's own measures: 1984 + 494 units of 2048 from top to bottom, "A" 1398 of advance at regular
    // weight.
    const Size size = TextLayout("AAAAAAAAAA", style(1), -1).size();
    EXPECT_DOUBLE_EQ(size.height, 21);
    EXPECT_DOUBLE_EQ(size.width * 2, std::round(size.width * 2));
    const Size twice = TextLayout("AAAAAAAAAAAAAAAAAAAA", style(1), -1).size();
    EXPECT_NEAR(twice.width, 2 * size.width, 1);
}

TEST_F(TextLayoutTest, MeasuresWiderTheHeavierAndTheLarger) {
    const auto width = [](Font font) { return TextLayout("Vela panels", {font}, -1).size().width; };
    EXPECT_GT(width(Font::system(17, FontWeight::Bold)), width(Font::system(17, FontWeight::Regular)));
    EXPECT_GT(width(Font::system(17, FontWeight::Regular)), width(Font::system(17, FontWeight::Thin)));
    EXPECT_NEAR(width(Font::system(34)), 2 * width(Font::system(17)), 1);
}

TEST_F(TextLayoutTest, GivesDigitsOneWidthWhereAsked) {
    const auto width = [](const char* text, bool monospaced) {
        return TextLayout(text, {{17, FontWeight::Regular, monospaced}}, -1).size().width;
    };
    EXPECT_LT(width("11111111", false), width("00000000", false));
    EXPECT_DOUBLE_EQ(width("11111111", true), width("00000000", true));
}

TEST_F(TextLayoutTest, GrowsEvenlyWithTheScaleItIsDrawnAt) {
    const TextLayout layout("smooth", style(1), -1);
    const auto once = inkColumns(layout, 200, 1), thrice = inkColumns(layout, 600, 3);
    EXPECT_NEAR(thrice.second / 3.0, once.second, 1);
}

TEST_F(TextLayoutTest, PutsGlyphsOnFractionsOfAPixel) {
    const TextLayout layout("l", style(1), -1);
    Painting whole(20, 30), moved(20, 30);
    whole.canvas().drawText(layout, {5, 2}, white());
    moved.canvas().drawText(layout, {5.5, 2}, white());
    EXPECT_NEAR(whole.covered(), moved.covered(), 0.5);
    EXPECT_NE(whole.bytes(), moved.bytes());
}

TEST_F(TextLayoutTest, DrawsGrey) {
    Painting painting(60, 30);
    painting.canvas().drawText(TextLayout("Grey", style(1), -1), {0, 0}, white());
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 30; ++y) {
            const Pixel p = painting.at(x, y);
            ASSERT_TRUE(p.red == p.green && p.green == p.blue && p.blue == p.alpha) << p;
        }
    EXPECT_GT(painting.covered(), 50);
}

TEST_F(TextLayoutTest, CutsALongLineOffWithAnEllipsis) {
    const std::string text(200, 'm');
    const TextLayout layout(text, style(1), 100);
    EXPECT_LE(layout.size().width, 100);
    EXPECT_GT(layout.size().width, 70);
    EXPECT_DOUBLE_EQ(layout.size().height, lineHeight());
    EXPECT_EQ(layout.text(), text);
}

TEST_F(TextLayoutTest, CutsTheTextAfterAnyNumberOfLines) {
    const std::string text = "one two three four five six seven eight nine ten eleven twelve thirteen";
    const double unlimited = TextLayout(text, style(0), 80).size().height;
    for (const int lines : {1, 2, 3, 4}) {
        const double height = TextLayout(text, style(lines), 80).size().height;
        EXPECT_NEAR(height, lines * TextLayout("A", style(1), -1).size().height, 0.5 * lines) << lines;
        EXPECT_LT(height, unlimited);
    }
}

TEST_F(TextLayoutTest, CountsLinesAcrossParagraphs) {
    EXPECT_NEAR(TextLayout("a\nb\nc\nd", style(2), 200).size().height, 2 * lineHeight(), 1);
    EXPECT_NEAR(TextLayout("a\nb\nc\nd", style(0), 200).size().height, 4 * lineHeight(), 2);
    EXPECT_NEAR(TextLayout("a\r\nb", style(0), 200).size().height, 2 * lineHeight(), 1);
    EXPECT_NEAR(TextLayout("a\n", style(0), 200).size().height, 2 * lineHeight(), 1);
    // The first line of several shows that it goes on.
    EXPECT_GT(TextLayout("a\nb", style(1), 200).size().width,
              TextLayout("a", style(1), 200).size().width + 5);
}

TEST_F(TextLayoutTest, CutsAtAWordWithoutAnEllipsisWhenWrapping) {
    const TextLayout cut("short incomprehensibilities", style(1, LineBreak::WordWrap), 80);
    const TextLayout whole("short", style(1), -1);
    EXPECT_NEAR(cut.size().width, whole.size().width, 5); // and the space
}

TEST_F(TextLayoutTest, AlignsWithinTheWidthThatItWasGiven) {
    const auto ink = [&](TextAlignment alignment) {
        return inkColumns(TextLayout("ink", style(1, LineBreak::TruncateTail, alignment), 200), 200);
    };
    const auto left = ink(TextAlignment::Left), center = ink(TextAlignment::Center),
               right = ink(TextAlignment::Right);
    EXPECT_LE(left.first, 2);
    EXPECT_GE(right.second, 197);
    EXPECT_NEAR(center.first + center.second, 200, 2);
    EXPECT_DOUBLE_EQ(TextLayout("ink", style(1), 200).layoutWidth(), 200);
}

TEST_F(TextLayoutTest, WithoutAWidthAlignsItsLinesAmongThemselves) {
    const TextLayout layout("a long line\ni", style(0, LineBreak::WordWrap, TextAlignment::Right), -1);
    EXPECT_DOUBLE_EQ(layout.layoutWidth(), layout.size().width);
    EXPECT_GT(layout.caretRect(12).x, layout.size().width - 10);
}

TEST_F(TextLayoutTest, TakesNoMarkup) {
    EXPECT_GT(TextLayout("<b>&amp;</b>", style(1), -1).size().width,
              TextLayout("&", style(1), -1).size().width * 3);
}

TEST_F(TextLayoutTest, FindsTheCaretAndTheByteUnderAPoint) {
    const TextLayout layout("a\u00e4b\u4e2d", style(1), -1); // two and three bytes long
    EXPECT_DOUBLE_EQ(layout.caretRect(0).x, 0);
    EXPECT_GT(layout.caretRect(1).x, 5);
    EXPECT_DOUBLE_EQ(layout.caretRect(2).x, layout.caretRect(1).x); // within a character: before it
    EXPECT_GT(layout.caretRect(3).x, layout.caretRect(1).x);
    EXPECT_NEAR(layout.caretRect(100).x, layout.size().width, 1);
    EXPECT_EQ(layout.indexAt({-10, 5}), 0u);
    EXPECT_EQ(layout.indexAt({layout.caretRect(3).x + 0.5, 5}), 3u);
    EXPECT_EQ(layout.indexAt({1e9, 1e9}), 7u);
}

TEST_F(TextLayoutTest, FindsCaretsInLongTextsToo) {
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += "line " + std::to_string(i) + "\n";
    const TextLayout layout(text, style(0), 300);
    double last = -1;
    for (std::size_t index = 0; index < text.size(); index += 997) {
        const Rect caret = layout.caretRect(index);
        EXPECT_GE(caret.y, last);
        last = caret.y;
        EXPECT_EQ(layout.indexAt({caret.x + 0.1, caret.y + caret.height / 2}), index)
            << text.substr(index, 8);
    }
    EXPECT_NEAR(layout.size().height, 2001 * lineHeight(), 2001 * 0.5);
}

TEST_F(TextLayoutTest, HasTheHeightOfALineWhenEmpty) {
    const TextLayout layout("", style(0), 100);
    EXPECT_DOUBLE_EQ(layout.size().width, 0);
    EXPECT_DOUBLE_EQ(layout.size().height, lineHeight());
    EXPECT_DOUBLE_EQ(layout.caretRect(0).height, TextLayout("A", style(1), -1).caretRect(0).height);
}

TEST_F(TextLayoutTest, SurvivesTextWithoutAnyPlaceToBreak) {
    const std::string text(60'000, 'w');
    const TextLayout layout(text, style(0, LineBreak::WordWrap), 300);
    EXPECT_LE(layout.size().width, 300);
    EXPECT_GT(layout.size().height, 60'000 / 25 * lineHeight());
    EXPECT_DOUBLE_EQ(TextLayout(text, style(3), 300).size().width, 300);
}

TEST_F(TextLayoutTest, SurvivesAbsurdSizesAndWidths) {
    EXPECT_GE(TextLayout("text", {Font::system(1e300)}, 1e300).size().width, 0);
    EXPECT_GE(TextLayout("text", {Font::system(-5)}, 0).size().width, 0);
    EXPECT_GE(TextLayout("text", {Font::system(std::nan(""))}, std::nan("")).size().width, 0);
    EXPECT_GE(TextLayout(std::string(4096, 'W'), {Font::system(1000)}, -1).size().width, 0);
}

TEST_F(TextLayoutTest, DrawsOnlyItsOwnFontsWhenPinned) {
    // No font of the resources has this character, so its place shows the box with its number, as everywhere.
    Painting painting(60, 40);
    painting.canvas().drawText(TextLayout("\u4e2d", style(1), -1), {0, 0}, white());
    EXPECT_GT(painting.covered(), 5);
}

TEST_F(TextLayoutTest, LooksAlikeFromKeptGlyphsAndFromShapes) {
    // A curved clip, though it cuts nothing off, takes the road of the shapes.
    const TextLayout layout("Kept, g\u00e9nial & 123", style(1), -1);
    for (const double scale : {1.0, 2.0, 3.0}) {
        Painting kept(600, 80, scale), shapes(600, 80, scale);
        for (Painting* painting : {&kept, &shapes}) {
            painting->filled(Color::rgba(0.2, 0.3, 0.4));
            if (painting == &shapes)
                painting->canvas().clipRoundedRect({-1000, -1000, 3000, 3000}, 10);
            painting->canvas().drawText(layout, {3, 2}, Color::rgba(1, 0.9, 0.5, 0.8));
        }
        double keptSum = 0, shapesSum = 0;
        int largest = 0;
        for (std::size_t i = 0; i < kept.bytes().size(); ++i) {
            keptSum += kept.bytes()[i];
            shapesSum += shapes.bytes()[i];
            largest = std::max(largest, std::abs(kept.bytes()[i] - shapes.bytes()[i]));
        }
        EXPECT_NEAR(keptSum / shapesSum, 1, 0.001) << scale;
        EXPECT_LE(largest, 0.25 * 255) << scale; // an eighth of a pixel off in each direction at most
    }
}

TEST_F(TextLayoutTest, CutsKeptGlyphsAtTheClip) {
    const TextLayout layout("WWWWWW", style(1), -1);
    Painting whole(100, 30), part(100, 30);
    whole.canvas().drawText(layout, {-5, -3}, white());
    part.canvas().clipRect({20, 5, 31, 7});
    part.canvas().drawText(layout, {-5, -3}, white());
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 100; ++x) {
            const bool inside = x >= 20 && x < 51 && y >= 5 && y < 12;
            ASSERT_EQ(part.at(x, y), inside ? whole.at(x, y) : (Pixel{0, 0, 0, 0})) << x << ", " << y;
        }
}

TEST(Utf8, IsMadeWholeWhereItIsBroken) {
    EXPECT_EQ(wholeUtf8("plain \u00e4\u4e2d\U0001F600", 100), "plain \u00e4\u4e2d\U0001F600");
    EXPECT_EQ(wholeUtf8("a\xff\xfe z", 100), "a\uFFFD\uFFFD z");
    EXPECT_EQ(wholeUtf8("cut \xe4\xb8", 100).substr(0, 4), "cut ");
    EXPECT_EQ(wholeUtf8("\xed\xa0\x80", 100).find("\xed"), std::string::npos); // half a surrogate pair
}

TEST(Utf8, LosesItsNulBytes) {
    EXPECT_EQ(wholeUtf8(std::string_view("a\0b\0", 4), 100), "ab");
    EXPECT_EQ(wholeUtf8(std::string_view("\0\0", 2), 100), "");
}

TEST(Utf8, IsCutBetweenCharacters) {
    EXPECT_EQ(wholeUtf8("a\u4e2d\u4e2d", 6), "a\u4e2d");
    EXPECT_EQ(wholeUtf8("a\u4e2d\u4e2d", 7), "a\u4e2d\u4e2d");
    EXPECT_LE(wholeUtf8(std::string(3'000'000, '\xff'), 1'000'000).size(), 1'000'000u);
}

} // namespace
} // namespace toolkit
