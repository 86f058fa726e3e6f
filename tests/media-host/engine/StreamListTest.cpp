#include "hosts/media/engine/StreamList.h"

#include <gmock/gmock.h>

namespace playback {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* address = "http://radio.example/lists/all.m3u";

TEST(StreamList, IsKnownByTheEndOfItsPath) {
    EXPECT_TRUE(namesStreamList("http://radio.example/listen.m3u"));
    EXPECT_TRUE(namesStreamList("https://radio.example/LISTEN.PLS?quality=high#top"));
    for (const char* other : {"http://radio.example/listen.m3u8", "http://radio.example/stream?list=a.pls",
                              "http://radio.example", "file:///music/list.m3u", "listen.m3u", "http://", ""})
        EXPECT_FALSE(namesStreamList(other)) << other;
}

TEST(StreamList, NamesTheLinesThatAreAddresses) {
    EXPECT_THAT(
        streamsOfList("#EXTM3U\n#EXTINF:-1,One\nhttp://a.example/1\n\n  https://b.example/2 \r\n", address),
        ElementsAre("http://a.example/1", "https://b.example/2"));
}

TEST(StreamList, NamesTheFilesOfAPlayList) {
    EXPECT_THAT(streamsOfList("\xEF\xBB\xBF[Playlist]\r\nNumberOfEntries=2\r\nFile1=http://a.example/1\r\n"
                              "Title1=http://not.example\r\nLength1=-1\r\nfile2 = http://a.example/2",
                              address),
                ElementsAre("http://a.example/1", "http://a.example/2"));
}

TEST(StreamList, TakesAddressesRelativeToItsOwn) {
    EXPECT_THAT(
        streamsOfList("high\n/low\n//other.example/x\n", address),
        ElementsAre("http://radio.example/lists/high", "http://radio.example/low", "http://other.example/x"));
}

TEST(StreamList, LeavesOutWhatIsNotOfTheWeb) {
    EXPECT_THAT(
        streamsOfList("file:///etc/passwd\nappsrc://\njavascript:1\nhttp://[\n\xFF\xFE\n", "http://["),
        IsEmpty());
}

TEST(StreamList, OfPiecesOfOneStreamNamesNone) {
    EXPECT_THAT(streamsOfList("#EXTM3U\n#EXT-X-TARGETDURATION:10\nhttp://a.example/1.ts\n", address),
                IsEmpty());
}

TEST(StreamList, HasAnEnd) {
    std::string text;
    for (int line = 0; line < 100'000; ++line)
        text += "http://a.example/\n";
    EXPECT_EQ(streamsOfList(text, address).size(), mostStreamsOfList);
    EXPECT_THAT(streamsOfList(std::string(100'000, '\n'), address), IsEmpty());
    EXPECT_THAT(streamsOfList("", address), IsEmpty());
}

} // namespace
} // namespace playback
