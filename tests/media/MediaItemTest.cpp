#include "platform/media/MPMediaItem.h"

#include "platform/media/MPMediaQuery.h"
#include "platform/media/MPMusicPlayerController.h"
#include "tests/support/TestMediaPort.h"

#include <gmock/gmock.h>

namespace {

using namespace media;
using foundation::PropertyList;
using testing::ElementsAre;

std::shared_ptr<MPMediaItem> song(std::int64_t identifier) {
    return std::make_shared<MPMediaItem>(
        std::map<std::string, PropertyList>{{MPMediaItemPropertyPersistentID, identifier}});
}

TEST(MediaItem, AnswersWhatItWasMadeWithAndNilForTheRest) {
    const MPMediaItem item({{MPMediaItemPropertyTitle, "Paper Boats"},
                            {MPMediaItemPropertyArtist, ""},
                            {MPMediaItemPropertyPlaybackDuration, 187.5},
                            {MPMediaItemPropertyPersistentID, std::int64_t{77}}});
    EXPECT_EQ(item.valueForProperty(MPMediaItemPropertyTitle), PropertyList("Paper Boats"));
    EXPECT_EQ(item.valueForProperty(MPMediaItemPropertyPlaybackDuration), PropertyList(187.5));
    EXPECT_EQ(item.valueForProperty(MPMediaItemPropertyArtist), PropertyList(""));
    EXPECT_TRUE(item.valueForProperty(MPMediaItemPropertyAlbumTitle).isNil());
    EXPECT_TRUE(item.valueForProperty("no such property").isNil());
    EXPECT_EQ(item.storedProperty(MPMediaItemPropertyAlbumTitle), nullptr);
    EXPECT_EQ(item.persistentID(), 77);
    EXPECT_EQ(item.artwork(), nullptr);
}

TEST(MediaItem, HoldsNothingWhenItStandsForASongOutsideTheLibrary) {
    const MPMediaItem item;
    EXPECT_TRUE(item.valueForProperty(MPMediaItemPropertyTitle).isNil());
    EXPECT_EQ(item.artist(), "");
    EXPECT_EQ(item.persistentID(), 0);
    EXPECT_EQ(item.artwork(), nullptr);
    EXPECT_TRUE(item.valueForProperty(MPMediaItemPropertyLyrics).isNil());
}

TEST(MediaItem, KeepsTextsOfAnyKindWhole) {
    const std::string hostile = std::string("a\0b\n/../", 8) + std::string(10'000, 'x');
    const MPMediaItem item({{MPMediaItemPropertyTitle, hostile}, {MPMediaItemPropertyArtist, hostile}});
    EXPECT_EQ(item.valueForProperty(MPMediaItemPropertyTitle), PropertyList(hostile));
    EXPECT_EQ(item.artist(), hostile);
}

TEST(MediaItem, AnArtistThatIsNoTextIsNone) {
    EXPECT_EQ(MPMediaItem({{MPMediaItemPropertyArtist, 5}}).artist(), "");
}

TEST(MediaItem, AsksTheHostForLyricsAtEveryCall) {
    tests::TestMediaPort port;
    const auto item = song(5);
    EXPECT_TRUE(item->valueForProperty(MPMediaItemPropertyLyrics).isNil());
    port.words[5] = "la la";
    EXPECT_EQ(item->valueForProperty(MPMediaItemPropertyLyrics), PropertyList("la la"));
}

TEST(MediaQuery, HandsOutTheLibraryItself) {
    tests::TestMediaPort port;
    port.library = std::make_shared<const MediaItems>(MediaItems{song(1), song(2)});
    const auto items = MPMediaQuery::songsQuery()->items();
    EXPECT_EQ(items, port.library);
}

TEST(MediaQuery, IsEmptyWithoutAHost) {
    const auto items = MPMediaQuery::songsQuery()->items();
    ASSERT_NE(items, nullptr);
    EXPECT_TRUE(items->empty());
}

TEST(SystemMusicPlayer, PassesEveryCallToTheHostInOrder) {
    tests::TestMediaPort port;
    auto& player = MPMusicPlayerController::systemMusicPlayer();
    const auto chosen = song(9);
    player.setQueueWithItemCollection(MPMediaItemCollection({chosen}));
    player.setNowPlayingItem(chosen);
    player.prepareToPlay();
    player.play();
    player.pause();
    player.skipToNextItem();
    player.skipToPreviousItem();
    EXPECT_THAT(port.calls, ElementsAre("queue of 1", "song 9", "prepare", "play", "pause", "next item",
                                        "previous item"));
}

TEST(SystemMusicPlayer, DoesNothingWithoutAHost) {
    auto& player = MPMusicPlayerController::systemMusicPlayer();
    player.setQueueWithItemCollection(MPMediaItemCollection({song(1)}));
    player.setNowPlayingItem(song(1));
    player.prepareToPlay();
    player.play();
    player.skipToNextItem();
    EXPECT_EQ(player.nowPlayingItem(), nullptr);
}

} // namespace
