#include "tests/vela/nowplaying/NowPlayingTest.h"

#include "platform/toolkit/layers/LayerAnimations.h"
#include "vela/nowplaying/NowPlayingHooks.h"
#include "vela/nowplaying/songCollectionViewCell.h"

#include <algorithm>

using foundation::Notification;
using foundation::NotificationCenter;
using foundation::PropertyList;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace toolkit;
namespace now = vela::nowplaying;

namespace {

struct Tracking : tests::NowPlayingTest {
    Tracking() {
        observers.push_back(NotificationCenter::defaultCenter().addObserver(
            now::trackDidChangeNotification, [this](const Notification& notification) {
                tracks.push_back(notification.object);
                if (whenTold)
                    whenTold();
            }));
        observers.push_back(NotificationCenter::defaultCenter().addObserver(
            now::elapsedTimeDidChangeNotification,
            [this](const Notification& notification) { elapsedTimes.push_back(notification.object); }));
    }
    std::string caption() { return panel().applicationLabel()->text(); }
    bool captionFades() { return panel().applicationLabel()->layer()->hasAnimations(); }
    void storeCover(const std::string& title, const std::string& artist) {
        store.addArtWork(tests::greyImage(99), title, artist);
    }
    static bool hasCover(const std::shared_ptr<media::MPMediaItem>& song) {
        return vela::mediaitem::songArtwork(*song) != nullptr;
    }

    std::vector<PropertyList> tracks;
    std::vector<PropertyList> elapsedTimes;
    std::function<void()> whenTold;
    std::vector<foundation::Handle> observers;
};

// The application

TEST_F(Tracking, TheCaptionNamesTheApplicationThatPlays) {
    host->displayNames["com.example.tunes"] = "Tunes";
    controller->applicationDidChange("com.example.tunes");
    EXPECT_EQ(caption(), "Tunes");
    EXPECT_TRUE(captionFades());
    wait(0.29);
    EXPECT_TRUE(captionFades());
    wait(0.02);
    EXPECT_FALSE(captionFades());
    controller->applicationDidChange(std::nullopt);
    EXPECT_EQ(caption(), "Music");
    controller->applicationDidChange("com.example.unknown");
    EXPECT_EQ(caption(), "");
}

TEST_F(Tracking, RadioIsCaptionedAsSuch) {
    controller->setRadioStation(true);
    controller->applicationDidChange("com.example.tunes");
    EXPECT_EQ(caption(), "Radio");
    controller->setRadioStation(false);
    controller->applicationDidChange(std::nullopt);
    EXPECT_EQ(caption(), "Music");
}

TEST_F(Tracking, ATrackIsCaptionedWithThePhonesOwnPlayer) {
    host->displayNames["com.example.tunes"] = "Tunes";
    controller->applicationDidChange("com.example.tunes");
    track(info("Song", "Band"));
    EXPECT_EQ(caption(), "Music");
    EXPECT_TRUE(captionFades());
    controller->setRadioStation(true);
    track(info("Song", "Band"));
    EXPECT_EQ(caption(), "Radio");
}

// The order of things

TEST_F(Tracking, AReportReachesTheHostTheCaptionThePlugInsAndThenThePanel) {
    storeLyric("Song", "Band", "la la");
    const auto song = library.add("Song", "Band", "Album");
    panel().applicationLabel()->setText("before");
    const auto original = now::originalInfoDidChange;
    now::originalInfoDidChange = [&](auto& self, auto* reporter, PropertyList information) {
        transcript.add("host, caption ", caption());
        original(self, reporter, std::move(information));
    };
    whenTold = [&] {
        transcript.add("plug-ins, caption ", caption(), ", ", strip().array().size(), " songs, duration ",
                       state.songDuration, ", text ", lyric().text());
    };
    controller->playbackStateDidChange(true);
    controller->infoDidChange(info("Song", "Band", "Album", 1, 123.5));
    transcript.add("panel, ", strip().array().size(), " songs, duration ", state.songDuration, ", text ",
                   lyric().text(), ", ring ", lyric().ring()->isHidden() ? "hidden" : "shown");
    loop.turn();
    transcript.add("later, text ", lyric().text());
    EXPECT_THAT(transcript.take(),
                ElementsAre("host, caption before",
                            "plug-ins, caption Music, 0 songs, duration 0, text Lyric",
                            "panel, 1 songs, duration 123.5, text , ring shown", "later, text la la"));
    now::originalInfoDidChange = original;
}

TEST_F(Tracking, PlugInsGetTheInformationAsItCame) {
    const PropertyList information(info("Song", "Band"));
    track(information);
    track({});
    ASSERT_EQ(tracks.size(), 2u);
    EXPECT_EQ(tracks[0], information);
    EXPECT_TRUE(tracks[1].isNil());
}

TEST_F(Tracking, APauseChangesNothingButTheCaption) {
    library.add("Song", "Band", "Album");
    storeLyric("Song", "Band", "la la");
    track(info("Song", "Band", "Album", 1, 123));
    wait(1);
    controller->playbackStateDidChange(false);
    controller->infoDidChange(info("Other", "Other", "Other", 7, 456));
    EXPECT_TRUE(captionFades());
    wait(1);
    EXPECT_EQ(tracks.size(), 2u);
    EXPECT_EQ(lyric().text(), "la la");
    EXPECT_THAT(stripTitles(), ElementsAre("Song"));
    EXPECT_EQ(state.songDuration, 123);
}

TEST_F(Tracking, WithoutInformationThePanelIsAsAtFirst) {
    library.add("Song", "Band", "Album");
    track(info("Song", "Band", "Album", 1));
    controller->playbackStateDidChange(false);
    controller->infoDidChange({});
    EXPECT_EQ(lyric().text(), "Lyric");
    EXPECT_FALSE(lyric().isScrollEnabled());
    EXPECT_THAT(stripTitles(), IsEmpty());
    wait(1);
    EXPECT_TRUE(lyric().ring()->isHidden());
}

// Radio, and songs of other applications

TEST_F(Tracking, ARadioStreamsSongStandsAloneInTheStrip) {
    storeCover("Song", "Band");
    library.add("Song", "Band", "Album");
    controller->setRadioStation(true);
    track(info("Song", "Band", "Album", 1));
    EXPECT_EQ(caption(), "Radio");
    EXPECT_THAT(stripTitles(), ElementsAre("Song"));
    const auto shown = strip().array()[0];
    EXPECT_EQ(shown->persistentID(), 0) << "a song outside the library";
    EXPECT_EQ(vela::mediaitem::songArtist(*shown), "Band");
    EXPECT_TRUE(hasCover(shown));
    wait(1);
    EXPECT_EQ(state.displayLink, nullptr);
    controller->elapsedTimeDidChange(12);
    EXPECT_THAT(elapsedTimes, IsEmpty());
    EXPECT_EQ(state.elapsed, 0);
}

TEST_F(Tracking, ACoverThatArrivesIsShown) {
    storeCover("Song", "Band");
    controller->setRadioStation(true);
    controller->playbackStateDidChange(true);
    controller->infoDidChange(info("Song", "Band"));
    EXPECT_FALSE(hasCover(strip().array()[0])) << "not before the main queue's next turn";
    const auto shown = [this] {
        return dynamic_cast<vela::songCollectionViewCell&>(*strip().cellForItem({0, 0})).artwork()->image();
    };
    strip().layoutIfNeeded();
    EXPECT_EQ(shown(), nullptr);
    wait(0.1);
    EXPECT_NE(shown(), nullptr);
}

TEST_F(Tracking, ARadioStreamWithoutWordsClearsThePanel) {
    controller->setRadioStation(true);
    track(info("Song", "Band"));
    track(info("", ""));
    EXPECT_THAT(stripTitles(), IsEmpty());
    EXPECT_EQ(lyric().text(), "Lyric");
    track(PropertyList::Dictionary{});
    EXPECT_EQ(lyric().text(), "Lyric");
    wait(1);
    EXPECT_TRUE(lyric().ring()->isHidden());
}

TEST_F(Tracking, HalfANameLeavesTheStripAsItWas) {
    for (const bool radio : {true, false}) {
        controller->setRadioStation(radio);
        track(info("Song", "Band"));
        track(info("Another", ""));
        EXPECT_THAT(stripTitles(), ElementsAre("Song"));
        EXPECT_EQ(lyric().text(), "Error with song");
        track(info("", "Somebody"));
        EXPECT_THAT(stripTitles(), ElementsAre("Song"));
        EXPECT_EQ(lyric().text(), "Error with song");
    }
}

TEST_F(Tracking, ATitleAloneIsStillLookedUp) {
    storeLyric("Song", "", "words of a nameless band");
    track(info("Song", ""));
    EXPECT_EQ(lyric().text(), "words of a nameless band");
    track(info("Other", ""));
    EXPECT_EQ(lyric().text(), "Error with song");
}

TEST_F(Tracking, ASongOfAnotherApplicationIsTreatedLikeRadio) {
    storeCover("Song", "Band");
    library.add("Else", "Band", "Album");
    track(info("Song", "Band", "Album", 4711));
    EXPECT_THAT(stripTitles(), ElementsAre("Song"));
    EXPECT_TRUE(hasCover(strip().array()[0]));
    EXPECT_NE(state.displayLink, nullptr) << "but its lyric scrolls";
}

// Songs of the library

struct RelatedSongs : Tracking {
    RelatedSongs() {
        library.add("One", "Band", "Album");
        library.add("Two", "Band", "Other album");
        library.add("Three", "Other band", "Album");
        library.add("Four", "Band", "Album");
    }
    void loadSongsWith(PropertyList choice) { preference(vela::keys::loadSongsWith, std::move(choice)); }
    void playTwo() { track(info("Two", "Band", "Other album", 2)); }
};

TEST_F(RelatedSongs, OfTheSameArtist) {
    playTwo();
    EXPECT_THAT(stripTitles(), ElementsAre("Two", "One", "Four"));
}

TEST_F(RelatedSongs, OfTheSameAlbum) {
    loadSongsWith("album");
    track(info("One", "Band", "Album", 1));
    EXPECT_THAT(stripTitles(), ElementsAre("One", "Three", "Four"));
}

TEST_F(RelatedSongs, AQueueIsTakenForTheArtist) {
    loadSongsWith("queue");
    playTwo();
    EXPECT_THAT(stripTitles(), ElementsAre("Two", "One", "Four"));
}

TEST_F(RelatedSongs, WithoutAChoiceTheStripIsCleared) {
    playTwo();
    loadSongsWith({});
    playTwo();
    EXPECT_THAT(stripTitles(), IsEmpty());
    loadSongsWith("genre");
    playTwo();
    EXPECT_THAT(stripTitles(), IsEmpty());
}

TEST_F(RelatedSongs, TheIdentifierMayBeText) {
    PropertyList::Dictionary information = info("Two", "Band", "Other album");
    information[media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier] = "2";
    track(information);
    EXPECT_THAT(stripTitles(), ElementsAre("Two", "One", "Four"));
}

TEST_F(RelatedSongs, ACoverIsFetchedOnlyForASongWithoutOne) {
    const auto covered = library.add("Five", "Solo", "Single", media::MPMediaItem::Cover::InLibrary);
    const auto bare = library.add("Six", "Duo", "Single");
    storeCover("Five", "Solo");
    storeCover("Six", "Duo");
    track(info("Five", "Solo", "Single", 5));
    EXPECT_FALSE(hasCover(covered));
    track(info("Six", "Duo", "Single", 6));
    EXPECT_TRUE(hasCover(bare));
    const auto nameless = library.add("Seven", "Trio", "Single");
    storeCover("Seven", "");
    track(info("Seven", "", "Single", 7));
    EXPECT_FALSE(hasCover(nameless)) << "without an artist there is no request";
}

// Lyrics

TEST_F(Tracking, TheRingTurnsUntilTheLyricArrives) {
    serve([](const Request&, Connection& connection) {
        connection.answer(
            200, "text/html",
            "<html><body><div class='lyricbox'>{\"content\":\"<p>found\",\"media\"</div></body></html>");
    });
    controller->playbackStateDidChange(true);
    controller->infoDidChange(info("Song", "Band"));
    EXPECT_EQ(lyric().text(), "");
    EXPECT_TRUE(lyric().ring()->indeterminate());
    wait(0.1);
    EXPECT_EQ(lyric().text(), "found");
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), "found");
}

TEST_F(Tracking, TheSameSongReportedTwiceIsLookedUpTwice) {
    serve([](const Request&, Connection& connection) { connection.answer(404, "text/html", ""); });
    const auto pages = [this] {
        const auto targets = server->targets();
        return std::count(targets.begin(), targets.end(), "/wiki/Band:Song");
    };
    track(info("Song", "Band"));
    const auto first = strip().array()[0];
    wait(0.1);
    EXPECT_EQ(pages(), 1);
    store.removeLyric("Song_Band");
    track(info("Song", "Band"));
    EXPECT_NE(strip().array()[0], first);
    EXPECT_EQ(tracks.size(), 2u);
    wait(0.1);
    EXPECT_EQ(pages(), 2);
    EXPECT_EQ(lyric().text(), "No lyric");
}

// Autoscroll's frames

TEST_F(Tracking, FramesComeWhileASongPlays) {
    controller->playbackStateDidChange(true);
    const auto link = state.displayLink;
    ASSERT_NE(link, nullptr);
    EXPECT_TRUE(link->isRunning());
    controller->playbackStateDidChange(true);
    EXPECT_EQ(state.displayLink, link) << "the one that runs goes on";
    controller->playbackStateDidChange(false);
    EXPECT_EQ(state.displayLink, nullptr);
    EXPECT_FALSE(link->isRunning());
}

TEST_F(Tracking, NoFramesComeForRadioOrWithAutoscrollOff) {
    controller->playbackStateDidChange(true);
    controller->setRadioStation(true);
    controller->playbackStateDidChange(true);
    EXPECT_EQ(state.displayLink, nullptr);
    controller->setRadioStation(false);
    controller->playbackStateDidChange(true);
    EXPECT_NE(state.displayLink, nullptr);
    preference(vela::keys::autoscroll, false);
    EXPECT_NE(state.displayLink, nullptr) << "until the next report";
    controller->playbackStateDidChange(true);
    EXPECT_EQ(state.displayLink, nullptr);
}

TEST_F(Tracking, ElapsedTimeIsPassedOnAndKept) {
    controller->elapsedTimeDidChange(12.3456789012345);
    EXPECT_THAT(elapsedTimes, ElementsAre(PropertyList(12.3456789012345)));
    EXPECT_EQ(state.elapsed, 12.3456789012345f);
}

TEST_F(Tracking, ElapsedTimeIsPassedOnBeforeItIsKept) {
    std::vector<float> kept;
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        now::elapsedTimeDidChangeNotification, [&](const auto&) { kept.push_back(state.elapsed); });
    controller->elapsedTimeDidChange(12);
    controller->elapsedTimeDidChange(13);
    EXPECT_THAT(kept, ElementsAre(0.0f, 12.0f));
}

// The application's own

TEST_F(Tracking, OpeningTheApplicationClosesBothPanels) {
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(0.5);
    ASSERT_TRUE(vela::moduleState().rightGrabber->showed());
    transcript.take();
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        vela::leftWindowGrabber::notificationName, [&](const Notification& notification) {
            transcript.add("left ", *notification.object["name"].string(), ", right at ", panel().frame().x);
        });
    panel().mediaController()->_launchCurrentNowPlayingApp();
    transcript.add("right at ", panel().frame().x);
    EXPECT_THAT(transcript.take(),
                ElementsAre("launch com.apple.Music", "left dismissed, right at 75", "right at 375"));
    wait(0.5);
    EXPECT_FALSE(vela::moduleState().rightGrabber->showed());
}

TEST_F(Tracking, AnswersForAPanelThatIsGoneAreLost) {
    storeLyric("Song", "Band", "la la");
    storeCover("Song", "Band");
    const auto gone = vela::moduleState().right;
    controller->playbackStateDidChange(true);
    controller->infoDidChange(info("Song", "Band"));
    const auto song = gone->artworkCollectionView()->array().at(0);
    vela::moduleState() = {};
    wait(1);
    EXPECT_EQ(gone->lyric()->text(), "");
    EXPECT_FALSE(hasCover(song));
}

TEST_F(Tracking, ReportsBeforeTheLaunchReachTheHostAlone) {
    const auto controls = panel().mediaController();
    vela::moduleState() = {};
    controls->nowPlayingApplicationDidChange(controller.get(), "com.apple.Music");
    controls->nowPlayingInfoDidChange(controller.get(), info("Song", "Band"));
    controls->_launchCurrentNowPlayingApp();
    EXPECT_EQ(tracks.size(), 1u);
}

} // namespace
