#include "hosts/media/mpris/SongOfTrack.h"

#include <gtest/gtest.h>

namespace playback {
namespace {

std::shared_ptr<media::MPMediaItem> song(const std::string& title, const std::string& artist,
                                         const std::string& address) {
    return std::make_shared<media::MPMediaItem>(std::map<std::string, foundation::PropertyList>{
        {media::MPMediaItemPropertyTitle, title},
        {media::MPMediaItemPropertyArtist, artist},
        {media::MPMediaItemPropertyAssetURL, address},
    });
}

const media::MediaItems songs{song("One", "A", "file:///music/one.mp3"),
                              song("Two", "A", "file:///music/the%20second.mp3"),
                              song("Two", "A", "file:///music/live/two.mp3"), song("Three", "", "file:///3")};

TrackMetadata track(const std::string& title, const std::string& artist, const std::string& url = "") {
    TrackMetadata made;
    made.title = title;
    made.artist = artist;
    made.url = url;
    return made;
}

TEST(SongOfTrack, IsTheFirstOfTheSameTitleAndArtist) {
    EXPECT_EQ(songOfTrack(songs, track("Two", "A")), songs[1]);
    EXPECT_EQ(songOfTrack(songs, track("Two", "B")), nullptr);
    EXPECT_EQ(songOfTrack(songs, track("two", "A")), nullptr);
}

TEST(SongOfTrack, IsTheSongOfTheSameFileWhateverThePlayerCallsIt) {
    EXPECT_EQ(songOfTrack(songs, track("Two", "A", "file:///music/live/two.mp3")), songs[2]);
    EXPECT_EQ(songOfTrack(songs, track("", "", "file:///music/live/two.mp3")), songs[2]);
    EXPECT_EQ(songOfTrack(songs, track("One", "A", "file:///music/live/two.mp3")), songs[2]);
}

TEST(SongOfTrack, KnowsAnAddressThatIsEscapedInAnotherWay) {
    EXPECT_EQ(songOfTrack(songs, track("x", "", "file:///music/%74he%20second%2Emp3")), songs[1]);
    EXPECT_EQ(songOfTrack(songs, track("x", "", "file://localhost/music/one.mp3")), songs[0]);
}

TEST(SongOfTrack, IsNoneWithoutATitleOrWithoutAnArtist) {
    EXPECT_EQ(songOfTrack(songs, track("Three", "")), nullptr);
    EXPECT_EQ(songOfTrack(songs, track("", "A")), nullptr);
    EXPECT_EQ(songOfTrack(songs, track("", "", "https://example.org/music/one.mp3")), nullptr);
    EXPECT_EQ(songOfTrack(songs, track("", "", "file:%%%")), nullptr);
    EXPECT_EQ(songOfTrack({}, track("One", "A")), nullptr);
}

} // namespace
} // namespace playback
