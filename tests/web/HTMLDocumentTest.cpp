#include "platform/web/HTMLDocument.h"

#include "platform/web/HTMLLimits.h"

#include <gtest/gtest.h>

using web::HTMLDocument;

namespace {

/// The markup inside of the page's first box; "none" for a page without one, "refused" for no page.
std::string box(const std::string& page, std::size_t index = 0) {
    const auto document = HTMLDocument::parse(page);
    return document ? document->innerHTMLOfElement("box", index).value_or("none") : "refused";
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(HTMLDocument, FindsTheElementOfAClass) {
    EXPECT_EQ(box("<html><body><p>a</p><div class='box'>b</div></body></html>"), "b");
    EXPECT_EQ(box("<div class='a  box\tc'>b</div>"), "b");
    EXPECT_EQ(box("<p>nothing</p>"), "none");
    EXPECT_EQ(box("<div class='boxes'>b</div><div id='box'>c</div>"), "none");
    EXPECT_EQ(box(""), "none");
}

TEST(HTMLDocument, CountsInThePagesOrder) {
    const std::string page = "<div class=box>a<i class=box>b</i></div><p class=box>c</p>";
    EXPECT_EQ(box(page, 0), "a<i class=\"box\">b</i>");
    EXPECT_EQ(box(page, 1), "b");
    EXPECT_EQ(box(page, 2), "c");
    EXPECT_EQ(box(page, 3), "none");
}

TEST(HTMLDocument, TellsCasesOfClassesApartExceptInTheOldestPages) {
    EXPECT_EQ(box("<!DOCTYPE html><div class=BOX>b</div>"), "none");
    EXPECT_EQ(box("<div class=BOX>b</div>"), "b");
}

TEST(HTMLDocument, WritesMarkupInItsOneForm) {
    EXPECT_EQ(box("<div class=box><BR/>a<br><img SRC=x alt='\"'>&lt;&amp;&eacute;&nbsp;\"'</div>"),
              "<br>a<br><img src=\"x\" alt=\"&quot;\">&lt;&amp;é&nbsp;\"'");
    EXPECT_EQ(box("<div class=box><p>one<p>two<!-- x --></div>"), "<p>one</p><p>two<!-- x --></p>");
    EXPECT_EQ(box("<div class=box><made-Up A=1>x</made-Up></div>"), "<made-up a=\"1\">x</made-up>");
}

TEST(HTMLDocument, LeavesTheTextOfScriptsAlone) {
    EXPECT_EQ(box("<div class=box><script>a<b && \"c\"</script></div>"), "<script>a<b && \"c\"</script>");
    EXPECT_EQ(box("<script class=box type='application/json'>{\"a\":\"<p>b<br>c & d\"}</script>"),
              "{\"a\":\"<p>b<br>c & d\"}");
}

TEST(HTMLDocument, ClosesWhatIsLeftOpen) {
    EXPECT_EQ(box("<div class=box>{\"content\":\"<p>a<br>b\",\"media\":[]}</div>"),
              "{\"content\":\"<p>a<br>b\",\"media\":[]}</p>");
    EXPECT_EQ(box("<div class=box><b>a"), "<b>a</b>");
}

TEST(HTMLDocument, DoesNotLookIntoTemplates) {
    EXPECT_EQ(box("<template><div class=box>a</div></template><div class=box>b</div>"), "b");
}

TEST(HTMLDocument, ReadsMegabytesOfText) {
    const std::string text(2'000'000, 'x');
    EXPECT_EQ(box("<div class=box>" + text + "</div>"), text);
}

TEST(HTMLDocument, AnswersNothingForABoxOfTooMuchMarkup) {
    EXPECT_EQ(box("<div class=box>" + std::string(2'000'000, '&') + "</div>"), "none");
}

TEST(HTMLDocument, ReadsDeepNesting) {
    const std::size_t depth = web::mostTags - 10;
    EXPECT_EQ(box("<div class=box>" + repeated("<div>", depth)),
              repeated("<div>", depth) + repeated("</div>", depth));
}

TEST(HTMLDocument, RefusesPagesOfTooManyTags) {
    EXPECT_EQ(box(repeated("<div>", web::mostTags + 1)), "refused");
    EXPECT_EQ(box(repeated("</x>", web::mostTags + 1)), "refused");
}

TEST(HTMLDocument, RefusesTagsOfTooManyAttributes) {
    std::string attributes;
    for (std::size_t i = 0; i <= web::mostAttributesOfTag; ++i)
        attributes += " a" + std::to_string(i);
    EXPECT_EQ(box("<div class=box" + attributes + ">b</div>"), "refused");
    EXPECT_EQ(box("<div x='>'" + attributes + "></div>"), "refused");
    EXPECT_EQ(box("<div x=\"" + attributes + "\" class=box>b</div>"), "b");
}

TEST(HTMLDocument, RefusesPagesWhoseTreeWouldOutgrowTheirMemory) {
    // Each paragraph opens anew what the one before has left open.
    std::string page = "<p>";
    for (int i = 0; i < 5'000; ++i)
        page += "<b a=" + std::to_string(i) + ">";
    EXPECT_EQ(box(page + repeated("<p>x", 5'000)), "refused");
}

TEST(HTMLDocument, TakesZeroBytesForNothingMuch) {
    EXPECT_EQ(box(std::string("<div class=box>a\0b</div>", 24)), "ab");
}

} // namespace
