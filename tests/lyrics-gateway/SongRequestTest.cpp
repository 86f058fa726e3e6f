#include "hosts/lyrics-gateway/SongRequest.h"

#include <gtest/gtest.h>

using gateway::SongRequest;

namespace {

/// "FORM ARTIST|TITLE", or "nothing".
std::string read(const std::string& target) {
    const auto request = SongRequest::parse(target);
    if (!request)
        return "nothing";
    return std::string(request->form == SongRequest::Form::Page ? "page " : "text ") + request->artist + "|" +
           request->title;
}

TEST(SongRequest, AsksForAPageByArtistAndTitle) {
    EXPECT_EQ(read("/wiki/Band:Song"), "page Band|Song");
    EXPECT_EQ(read("/wiki/The%20Band:A%20Song"), "page The Band|A Song");
    EXPECT_EQ(read("/wiki/B%C3%A9:%E6%AD%8C"), "page Bé|歌");
}

TEST(SongRequest, AsksForPlainTextByAQuery) {
    EXPECT_EQ(read("/wiki/?artist=The%20Band&song=A%20Song"), "text The Band|A Song");
}

TEST(SongRequest, TakesNamesWithSpecialCharacters) {
    EXPECT_EQ(read("/wiki/AC/DC:Who?%20&%20Why:1+1=2"), "page AC/DC|Who? & Why:1+1=2");
    EXPECT_EQ(read("/wiki/?artist=A&song=B&song=C=D?"), "text A&song=B|C=D?");
    EXPECT_EQ(read("/wiki/..:../../etc/passwd"), "page ..|../../etc/passwd");
}

TEST(SongRequest, IsNothingWithoutBothNames) {
    for (const char* target : {"", "/", "/wiki", "/wiki/", "/wiki/Band", "/wiki/Band:", "/wiki/:Song",
                               "/wiki/:", "/wiki/?artist=Band", "/wiki/?artist=Band&song=",
                               "/wiki/?artist=&song=Song", "/other/Band:Song", "wiki/Band:Song"})
        EXPECT_EQ(read(target), "nothing") << target;
}

TEST(SongRequest, IsNothingForNamesThatAreNoText) {
    EXPECT_EQ(read("/wiki/a%00b:c"), "nothing");
    EXPECT_EQ(read("/wiki/a%FF:c"), "nothing");
    EXPECT_EQ(read("/wiki/" + std::string(SongRequest::longestName + 1, 'a') + ":c"), "nothing");
    EXPECT_NE(read("/wiki/" + std::string(SongRequest::longestName, 'a') + ":c"), "nothing");
}

} // namespace
