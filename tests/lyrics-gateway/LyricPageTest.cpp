#include "hosts/lyrics-gateway/LyricPage.h"

#include "platform/web/HTMLDocument.h"

#include <gtest/gtest.h>

namespace {

/// What a reader of the page finds inside of its lyric box.
std::string box(const std::string& page) {
    return web::HTMLDocument::parse(page)->innerHTMLOfElement("lyricbox", 0).value_or("none");
}

TEST(LyricPage, HoldsTheTextInItsBox) {
    EXPECT_EQ(box(gateway::lyricPage("Band", "Song", "one\ntwo\n\nthree")),
              "{\"content\":\"<p>one<br>two<br><br>three\",\"media\":[]}");
}

TEST(LyricPage, KeepsSpecialCharacters) {
    EXPECT_EQ(box(gateway::lyricPage("A & B", "<Song>", "you & \"me\" <3 'é' > x &amp;")),
              "{\"content\":\"<p>you & \"me\" <3 'é' > x &amp;\",\"media\":[]}");
}

TEST(LyricPage, HoldsNothingThatEndsTheLyricEarly) {
    EXPECT_EQ(box(gateway::lyricPage("A", "B", "a</script>b<!--c<i>d<br>e,\"media\"f")),
              "{\"content\":\"<p>a‹/script>b‹!--c‹i>d‹br>e, \"media\"f\",\"media\":[]}");
}

TEST(LyricPage, HasNoBoxWithoutAText) {
    EXPECT_EQ(box(gateway::emptyPage("A", "B", "No lyric is known.")), "none");
}

} // namespace
