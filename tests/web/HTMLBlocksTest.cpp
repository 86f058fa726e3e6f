#include "platform/web/HTMLDocument.h"

#include <gtest/gtest.h>

using web::HTMLBlock;
using web::HTMLDocument;

namespace {

/// One line for each block: its kind's letter, its level, and its runs with a mark for their style.
std::string blocks(const std::string& page) {
    std::string text;
    for (const HTMLBlock& block : HTMLDocument::parse(page)->blocks()) {
        text += "HPLC"[static_cast<int>(block.kind)] + (block.level ? std::to_string(block.level) : "") + ":";
        for (const HTMLBlock::Run& run : block.runs)
            text += std::string(1, " *_`"[static_cast<int>(run.style)]) + run.text;
        text += "|";
    }
    return text;
}

TEST(HTMLBlocks, FollowThePageFromTopToBottom) {
    EXPECT_EQ(blocks("<h1>One</h1><h3>Three</h3><p>Text</p><ul><li>a<ol><li>b</ol></ul>last"),
              "H1: One|H3: Three|P: Text|L1: a|L2: b|P: last|");
}

TEST(HTMLBlocks, FoldWhiteSpaceButInPreformattedText) {
    EXPECT_EQ(blocks("<p>  a \n\t b </p>\n\n<p> </p><pre>  c\n   d\n</pre>"), "P: a b|C:`  c\n   d|");
    EXPECT_EQ(blocks("<p>a<br>b  c</p>"), "P: a\nb c|");
}

TEST(HTMLBlocks, KeepTheStyleOfWordsWithinALine) {
    EXPECT_EQ(blocks("<p>a <b>bold</b> and <em>soft</em> <code>x = 1</code>.</p>"),
              "P: a *bold  and _soft  `x = 1 .|");
}

TEST(HTMLBlocks, MakeALineOfATablesRow) {
    EXPECT_EQ(blocks("<table><tr><th>a</th><th>b</th></tr><tr><td>1</td><td>2</td></tr></table>"),
              "P: a · b|P: 1 · 2|");
}

TEST(HTMLBlocks, LeaveOutWhatIsNoText) {
    EXPECT_EQ(
        blocks("<head><title>t</title></head><script>run()</script><style>p{}</style><p>a<!-- b --></p>"),
        "P: a|");
    EXPECT_EQ(blocks(""), "");
}

TEST(HTMLBlocks, EndWhereNobodyReadsOn) {
    const std::string page = "<p>" + std::string(web::largestReading + 1000, 'a') + "</p><p>after</p>";
    const auto read = HTMLDocument::parse(page)->blocks();
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].runs[0].text.size(), web::largestReading);
}

TEST(HTMLBlocks, StandDeepNesting) {
    std::string page;
    for (int depth = 0; depth < 400; ++depth)
        page += "<div>";
    EXPECT_EQ(blocks(page + "deep"), "");
    EXPECT_EQ(blocks("<div><div>a</div></div>"), "P: a|");
}

} // namespace
