#include "hosts/phone/music/MusicPlayer.h"

#include "hosts/phone/music/VirtualPlaybackEngine.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/media/NowPlayingInfo.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>

#include <fstream>

namespace {

using namespace media;
using foundation::PropertyList;
using phone::MusicPlayer;
using Change = playback::NowPlayingSource::Change;

struct Player : testing::Test {
    Player() {
        foundation::RunLoop::setMain(&loop);
        foundation::setLogToStandardError(false);
        observer = player.addObserver([this](Change change) { changes.push_back(change); });
    }
    ~Player() override {
        foundation::setLogToStandardError(true);
        foundation::RunLoop::setMain(nullptr);
    }

    /// A song of the queue; its file is there unless it is said to be missing.
    enum class File { Present, Missing };
    std::shared_ptr<MPMediaItem> song(const std::string& title, double seconds, File file = File::Present) {
        const auto path = directory.path() / (title + ".ogg");
        if (file == File::Present)
            std::ofstream(path) << "as good as music";
        return std::make_shared<MPMediaItem>(
            std::map<std::string, PropertyList>{{MPMediaItemPropertyTitle, title},
                                                {MPMediaItemPropertyPersistentID, ++identifiers},
                                                {MPMediaItemPropertyPlaybackDuration, seconds},
                                                {MPMediaItemPropertyAssetURL, "file://" + path.string()}});
    }
    void queue(std::vector<std::shared_ptr<MPMediaItem>> items) {
        songs = std::make_shared<const MediaItems>(std::move(items));
        player.setQueue(songs);
    }
    std::string title() const {
        const auto item = player.nowPlayingItem();
        return item ? *item->valueForProperty(MPMediaItemPropertyTitle).string() : "none";
    }

    foundation::VirtualRunLoop loop;
    tests::TemporaryDirectory directory;
    MusicPlayer player{std::make_shared<phone::VirtualPlaybackEngine>()};
    SharedMediaItems songs;
    std::int64_t identifiers = 0;
    std::vector<Change> changes;
    foundation::Handle observer;
};

TEST_F(Player, HasNothingToPlayAtFirst) {
    player.play();
    player.pause();
    player.skipToNextItem();
    player.skipToPreviousItem();
    player.seek(5);
    player.prepareToPlay();
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(player.nowPlayingItem(), nullptr);
    EXPECT_TRUE(player.nowPlayingInfo().isNil());
    EXPECT_EQ(player.elapsed(), 0);
}

TEST_F(Player, BeginsWithTheQueuesFirstSong) {
    queue({song("one", 60), song("two", 60)});
    EXPECT_EQ(title(), "none");
    player.prepareToPlay();
    EXPECT_EQ(title(), "one");
    EXPECT_FALSE(player.isPlaying());
    player.play();
    loop.advance(10);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_NEAR(player.elapsed(), 10, 1e-9);
}

TEST_F(Player, PlaysTheSongThatWasChosenAndGoesOnBehindIt) {
    queue({song("one", 60), song("two", 60), song("three", 60)});
    player.setNowPlayingItem((*songs)[1]);
    player.prepareToPlay();
    player.play();
    EXPECT_EQ(title(), "two");
    loop.advance(60);
    EXPECT_EQ(title(), "three");
    EXPECT_TRUE(player.isPlaying());
    EXPECT_NEAR(player.elapsed(), 0, 1e-6);
}

TEST_F(Player, IgnoresASongThatIsNotInTheQueue) {
    queue({song("one", 60)});
    player.setNowPlayingItem(song("another", 60));
    player.setNowPlayingItem(nullptr);
    EXPECT_EQ(title(), "none");
}

TEST_F(Player, FindsASongOfTheQueueByItsIdentifier) {
    const auto one = song("one", 60);
    queue({one, song("two", 60)});
    const auto copy = std::make_shared<MPMediaItem>(
        std::map<std::string, PropertyList>{{MPMediaItemPropertyPersistentID, (*songs)[1]->persistentID()}});
    player.setNowPlayingItem(copy);
    EXPECT_EQ(title(), "two");
}

TEST_F(Player, KeepsTheSongThatPlaysWhenTheQueueIsExchanged) {
    queue({song("one", 60)});
    player.play();
    queue({song("two", 60)});
    EXPECT_EQ(title(), "one");
    EXPECT_TRUE(player.isPlaying());
    loop.advance(60);
    EXPECT_EQ(title(), "two");
}

TEST_F(Player, StandsPausedAtTheFirstSongAfterTheLast) {
    queue({song("one", 20), song("two", 20)});
    player.play();
    loop.advance(41);
    EXPECT_EQ(title(), "one");
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(player.elapsed(), 0);
    player.play();
    EXPECT_TRUE(player.isPlaying());
}

TEST_F(Player, SkipsForwardsAndStopsBehindTheLast) {
    queue({song("one", 60), song("two", 60)});
    player.play();
    player.skipToNextItem();
    EXPECT_EQ(title(), "two");
    EXPECT_TRUE(player.isPlaying());
    player.skipToNextItem();
    EXPECT_EQ(title(), "one");
    EXPECT_FALSE(player.isPlaying());
}

TEST_F(Player, SkipsBackToTheSongBeforeOrToTheBeginning) {
    queue({song("one", 60), song("two", 60)});
    player.setNowPlayingItem((*songs)[1]);
    player.play();
    loop.advance(3.5);
    player.skipToPreviousItem();
    EXPECT_EQ(title(), "two");
    EXPECT_EQ(player.elapsed(), 0);
    loop.advance(2.5);
    player.skipToPreviousItem();
    EXPECT_EQ(title(), "one");
    EXPECT_TRUE(player.isPlaying());
    loop.advance(1);
    player.skipToPreviousItem();
    EXPECT_EQ(title(), "one");
    EXPECT_EQ(player.elapsed(), 0);
}

TEST_F(Player, PausesAndGoesOnWhereItStood) {
    queue({song("one", 60)});
    player.play();
    loop.advance(5);
    player.pause();
    loop.advance(5);
    EXPECT_NEAR(player.elapsed(), 5, 1e-9);
    player.play();
    loop.advance(5);
    EXPECT_NEAR(player.elapsed(), 10, 1e-9);
}

TEST_F(Player, SeeksWithinTheSong) {
    queue({song("one", 60), song("two", 60)});
    player.play();
    player.seek(50);
    EXPECT_NEAR(player.elapsed(), 50, 1e-9);
    loop.advance(5);
    EXPECT_NEAR(player.elapsed(), 55, 1e-9);
    player.seek(-10);
    EXPECT_EQ(player.elapsed(), 0);
    player.seek(1000);
    loop.advance(0.1);
    EXPECT_EQ(title(), "two");
}

TEST_F(Player, TellsWhatPlays) {
    queue({song("one", 60)});
    player.play();
    loop.advance(4);
    const auto info = player.nowPlayingInfo();
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoTitle], PropertyList("one"));
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoDuration], PropertyList(60.0));
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoUniqueIdentifier], PropertyList(std::int64_t{1}));
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoPlaybackRate], PropertyList(1.0));
    EXPECT_NEAR(info[kMRMediaRemoteNowPlayingInfoElapsedTime].doubleValue(), 4, 1e-9);
    EXPECT_TRUE(info[kMRMediaRemoteNowPlayingInfoArtist].isNil());
    EXPECT_FALSE(player.isRadioStation());
}

TEST_F(Player, LeavesOutSongsThatCannotBePlayed) {
    queue({song("one", 20), song("gone", 20, File::Missing), song("three", 20)});
    player.play();
    loop.advance(20.1);
    EXPECT_EQ(title(), "three");
    EXPECT_TRUE(player.isPlaying());
    EXPECT_THAT(foundation::loggedLines().back(), testing::HasSubstr("gone.ogg cannot be played"));
}

TEST_F(Player, GivesUpWhenNothingCanBePlayed) {
    std::vector<std::shared_ptr<MPMediaItem>> missing;
    for (int i = 0; i < 100; ++i)
        missing.push_back(song("gone " + std::to_string(i), 20, File::Missing));
    foundation::clearLog();
    queue(std::move(missing));
    player.play();
    loop.advance(5);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_LT(foundation::loggedLines().size(), 20u);
}

TEST_F(Player, PlaysAStationAndSaysWhatTheStationSays) {
    player.playStation({"Night", "http://radio.example/night"});
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(player.isRadioStation());
    EXPECT_EQ(player.nowPlayingItem(), nullptr);
    EXPECT_EQ(player.station()->name, "Night");
    const auto info = player.nowPlayingInfo();
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoTitle], PropertyList(""));
    EXPECT_EQ(info[kMRMediaRemoteNowPlayingInfoRadioStationName], PropertyList("Night"));
    EXPECT_TRUE(info[kMRMediaRemoteNowPlayingInfoDuration].isNil());
}

TEST_F(Player, KnowsThatAStationCannotBePlayedUntilSomethingElseIsTried) {
    player.playStation({"Gone", "file://" + (directory.path() / "gone").string()});
    EXPECT_FALSE(player.hasFailed());
    loop.advance(0.1);
    EXPECT_TRUE(player.hasFailed());
    EXPECT_FALSE(player.isPlaying());
    player.playStation({"Night", "http://radio.example/night"});
    EXPECT_FALSE(player.hasFailed());
    EXPECT_TRUE(player.isPlaying());
}

TEST_F(Player, IsASilentStreamForDemonstrations) {
    player.playSilentStream({"Harbour", "Mira"});
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(player.isRadioStation());
    EXPECT_EQ(player.nowPlayingInfo()[kMRMediaRemoteNowPlayingInfoTitle], PropertyList("Harbour"));
    EXPECT_EQ(player.nowPlayingInfo()[kMRMediaRemoteNowPlayingInfoArtist], PropertyList("Mira"));
    player.pause();
    EXPECT_FALSE(player.isPlaying());
    player.play();
    EXPECT_TRUE(player.isPlaying());
}

TEST_F(Player, LeavesTheStationForASong) {
    queue({song("one", 60)});
    player.playStation({"Night", "http://radio.example/night"});
    player.skipToNextItem();
    EXPECT_TRUE(player.isRadioStation());
    player.setNowPlayingItem(songs->front());
    EXPECT_FALSE(player.isRadioStation());
    EXPECT_EQ(title(), "one");
    EXPECT_TRUE(player.isPlaying());
}

TEST_F(Player, TellsItsObserversOfEveryChange) {
    queue({song("one", 60)});
    player.play();
    EXPECT_THAT(changes, testing::IsSupersetOf({Change::Playing, Change::Info, Change::Elapsed}));
    changes.clear();
    player.seek(3);
    EXPECT_THAT(changes, testing::ElementsAre(Change::Elapsed));
    changes.clear();
    player.pause();
    EXPECT_THAT(changes, testing::ElementsAre(Change::Playing));
    observer.reset();
    changes.clear();
    player.play();
    EXPECT_TRUE(changes.empty());
}

TEST(StreamTitle, IsTakenApartAtTheFirstDash) {
    using phone::StreamTitle;
    EXPECT_EQ(StreamTitle::parse("Mira Vale - Rain - Live"), (StreamTitle{"Rain - Live", "Mira Vale"}));
    EXPECT_EQ(StreamTitle::parse("Station news"), (StreamTitle{"Station news", ""}));
    EXPECT_EQ(StreamTitle::parse("  A  -  B  "), (StreamTitle{"B", "A"}));
    EXPECT_EQ(StreamTitle::parse(""), (StreamTitle{"", ""}));
    EXPECT_EQ(StreamTitle::parse(" - "), (StreamTitle{"", ""}));
    EXPECT_EQ(StreamTitle::parse("a-b"), (StreamTitle{"a-b", ""}));
    EXPECT_EQ(StreamTitle::parse(std::string(10'000, 'x') + " - y").title, "y");
}

} // namespace
