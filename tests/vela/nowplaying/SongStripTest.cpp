#include "platform/media/CoverStore.h"
#include "platform/preferences/SLComposeViewController.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "tests/vela/nowplaying/NowPlayingTest.h"
#include "tests/vela/settings/RecordingPort.h"
#include "vela/nowplaying/songCollectionViewCell.h"
#include "vela/startup/AvailabilityCycle.h"

using media::MPMediaItem;
using namespace toolkit;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SongStrip : tests::NowPlayingTest {
    SongStrip() {
        for (const char* title : {"One", "Two", "Three", "Four", "Five"})
            library.add(title, "Band", "Album");
        strip().setArray(*library.songs());
        loop.turn();
    }
    void resize(double width, double height) {
        strip().setFrame({0, 0, width, height});
        strip().layoutIfNeeded();
    }
    Rect cover(int index) { return strip().collectionViewLayout()->frameForItem({0, index}); }
    vela::songCollectionViewCell& cell(int index) {
        return dynamic_cast<vela::songCollectionViewCell&>(*strip().cellForItem({0, index}));
    }
    void select(int row) {
        dynamic_cast<CollectionViewDelegate&>(*strip().delegate())
            .didSelectItemAtIndexPath(strip(), {0, row});
    }
};

// Geometry

TEST_F(SongStrip, IsBuiltToShowOneCoverInTheMiddle) {
    EXPECT_TRUE(strip().backgroundColor()->isClear());
    EXPECT_FALSE(strip().showsHorizontalScrollIndicator());
    EXPECT_FALSE(strip().showsVerticalScrollIndicator());
    EXPECT_EQ(strip().collectionViewLayout()->scrollDirection(), ScrollDirection::Horizontal);
    resize(300, 110);
    EXPECT_EQ(cover(0), Rect(100, 5, 100, 100));
    EXPECT_EQ(cover(1).x - cover(0).x, 100 + 50);
    EXPECT_EQ(strip().contentSize(), (Size{100 + 5 * 100 + 4 * 50 + 100, 110}));
}

TEST_F(SongStrip, ReckonsInSinglePrecision) {
    resize(301.3, 130.1);
    const float side = 130.1f - 10.0f;
    ASSERT_NE(side, 120.1f) << "rounded before the margin is taken off, not after";
    EXPECT_EQ(cover(0).width, static_cast<double>(side));
    EXPECT_EQ(cover(0).x, (301.3 - side) * 0.5);
    const auto spacing = static_cast<float>((301.3 - side) * 0.25);
    EXPECT_EQ(cover(1).x, cover(0).x + side + spacing);
}

TEST_F(SongStrip, ALowOneHasCoversOfAPoint) {
    for (const double height : {10.0, 4.0, 0.0}) {
        resize(300, height);
        EXPECT_EQ(cover(0).size(), (Size{1, 1})) << height;
    }
}

TEST_F(SongStrip, AsWideAsACoverItHasNeitherInsetsNorSpacing) {
    resize(100, 110);
    EXPECT_EQ(cover(0), Rect(0, 5, 100, 100));
    EXPECT_EQ(cover(1).x, 100);
    EXPECT_EQ(strip().contentSize().width, 500);
}

TEST_F(SongStrip, NarrowerThanACoverItHasNoSpacing) {
    resize(60, 110);
    EXPECT_EQ(cover(0).x, -20);
    EXPECT_EQ(cover(1).x, 80);
}

TEST_F(SongStrip, CentresASong) {
    resize(301.3, 123.7);
    strip().setOffsetToMusicIndex(2);
    EXPECT_EQ(strip().playingIndex(), 2);
    const float side = 113.7f;
    const auto spacing = static_cast<float>((301.3 - side) * 0.25);
    EXPECT_NEAR(strip().contentOffset().x, 2 * (side + spacing), 1e-3);
    EXPECT_EQ(strip().contentOffset().x, static_cast<double>(static_cast<float>(strip().contentOffset().x)));
    EXPECT_NEAR(cover(2).center().x - strip().contentOffset().x, 301.3 / 2, 1e-3);
    EXPECT_TRUE(strip().layer()->hasAnimations());
    wait(1);
    strip().setArray({});
    strip().setOffsetToMusicIndex(1);
    EXPECT_EQ(strip().playingIndex(), 0) << "nothing to centre";
}

TEST_F(SongStrip, FadesBothItsEdges) {
    const GradientMask mask = strip().layer()->mask().value();
    EXPECT_THAT(mask.stops, ElementsAre(GradientStop{0, Color::clear()}, GradientStop{0.1, Color::black()},
                                        GradientStop{0.9, Color::black()}, GradientStop{1, Color::clear()}));
    EXPECT_EQ(mask.start, (Point{0, 1}));
    EXPECT_EQ(mask.end, (Point{1, 1}));
    resize(300, 110);
    EXPECT_EQ(strip().layer()->mask()->bounds.size(), (Size{300, 110}));
    strip().setContentOffset({77, 0});
    EXPECT_EQ(strip().layer()->mask()->position, (Point{77, 0}));
}

// Songs

TEST_F(SongStrip, NewSongsResetWhatIsKeptAlongWithThem) {
    strip().setOffsetToMusicIndex(3);
    strip().dictionary()["key"] = 1;
    strip().setRadioSongName("name");
    strip().setRadioArtistName("artist");
    strip().setArray({});
    EXPECT_EQ(strip().playingIndex(), 0);
    EXPECT_THAT(strip().dictionary(), IsEmpty());
    EXPECT_EQ(strip().radioSongName(), "");
    EXPECT_EQ(strip().radioArtistName(), "");
    loop.turn();
    EXPECT_THAT(strip().indexPathsForVisibleItems(), IsEmpty());
}

TEST_F(SongStrip, ACoverCastsAShadowOfItsBounds) {
    resize(300, 110);
    const Shadow shadow = cell(0).layer()->shadow();
    EXPECT_EQ(shadow.color, Color::black());
    EXPECT_EQ(shadow.opacity, 0.2);
    EXPECT_EQ(shadow.radius, 4);
    EXPECT_EQ(shadow.offset, (Size{0, -3}));
    EXPECT_EQ(shadow.path, Rect(0, 0, 100, 100));
    EXPECT_EQ(cell(0).artwork()->frame(), Rect(0, 0, 100, 100));
    EXPECT_TRUE(cell(0).artwork()->clipsToBounds());
    EXPECT_TRUE(cell(0).backgroundColor()->isClear());
    resize(300, 90);
    EXPECT_EQ(cell(0).layer()->shadow().path, Rect(0, 0, 80, 80));
}

TEST_F(SongStrip, ACoverIsWholeBeforeItIsLaidOut) {
    const vela::songCollectionViewCell made({0, 0, 100, 90});
    EXPECT_EQ(made.artwork()->frame(), Rect(0, 0, 100, 90));
    EXPECT_TRUE(made.isUserInteractionEnabled());
    EXPECT_EQ(made.layer()->shadow(), (Shadow{Color::black(), 0.2, 4, {0, -3}, Rect(0, 0, 100, 90)}));
}

TEST_F(SongStrip, ShowsTheCoverThatASongCarries) {
    EXPECT_EQ(cell(0).artwork()->image(), nullptr);
    const auto picture = tests::greyImage(77, 8, 8);
    vela::mediaitem::setSongArtwork(*strip().array()[0],
                                    std::make_shared<media::MPMediaItemArtwork>(picture));
    strip().reloadSections({0});
    loop.turn();
    EXPECT_EQ(cell(0).artwork()->image(), picture);
}

TEST_F(SongStrip, ACoverOfTheLibraryComesBeforeTheOneCarried) {
    const auto song = library.add("Six", "Band", "Album", MPMediaItem::Cover::InLibrary);
    const auto carried = tests::greyImage(77, 8, 8);
    vela::mediaitem::setSongArtwork(*song, std::make_shared<media::MPMediaItemArtwork>(carried));
    library.cover = toolkit::encodePng(*tests::greyImage(200, 6, 6));
    media::CoverStore::shared().clear();
    strip().setArray({song});
    wait(0.2);
    ASSERT_NE(cell(0).artwork()->image(), nullptr);
    EXPECT_EQ(cell(0).artwork()->image()->pixelWidth(), 6);
    library.cover.clear();
    media::CoverStore::shared().clear();
    strip().reloadSections({0});
    wait(0.2);
    EXPECT_EQ(cell(0).artwork()->image(), carried) << "the library's cannot be read";
}

TEST_F(SongStrip, ACarriedCoverWithoutAPictureShowsNoCoverOfTheLibrary) {
    library.cover = toolkit::encodePng(*tests::greyImage(200, 6, 6));
    vela::mediaitem::setSongArtwork(*strip().array()[0],
                                    std::make_shared<media::MPMediaItemArtwork>(nullptr));
    media::CoverStore::shared().clear();
    strip().reloadSections({0});
    wait(0.2);
    EXPECT_EQ(cell(0).artwork()->image(), nullptr);
}

TEST_F(SongStrip, WhatIsNoSongLeavesAnEmptyCover) {
    strip().setArray({nullptr, library.songs()->front()});
    loop.turn();
    EXPECT_EQ(cell(0).artwork()->image(), nullptr);
    select(0);
    select(7);
    select(-1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(SongStrip, ACellThatIsUsedAgainLosesItsCover) {
    vela::mediaitem::setSongArtwork(*strip().array()[0],
                                    std::make_shared<media::MPMediaItemArtwork>(tests::greyImage(77, 8, 8)));
    strip().setArray({strip().array()[0]});
    loop.turn();
    const auto used = strip().cellForItem({0, 0});
    ASSERT_NE(cell(0).artwork()->image(), nullptr);
    strip().setArray({nullptr});
    loop.turn();
    ASSERT_EQ(strip().cellForItem({0, 0}), used);
    EXPECT_EQ(cell(0).artwork()->image(), nullptr);
}

// Playing

TEST_F(SongStrip, ATapOnAnotherSongPlaysIt) {
    strip().setContentOffset({150, 0});
    select(1);
    EXPECT_THAT(transcript.take(), ElementsAre("queue of 1", "now playing 2", "prepare", "play"));
    EXPECT_EQ(strip().contentOffset(), (Point{0, 0}));
    EXPECT_TRUE(strip().layer()->hasAnimations());
}

TEST_F(SongStrip, AFingerSelects) {
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(0.5);
    const Rect neighbour = strip().convertRectTo(cover(1), nullptr);
    tap(neighbour.x + 5, neighbour.center().y);
    EXPECT_THAT(transcript.take(), ElementsAre("queue of 1", "now playing 2", "prepare", "play"));
}

TEST_F(SongStrip, LockedItStillPlays) {
    host->locked = true;
    select(2);
    EXPECT_THAT(transcript.take(), ElementsAre("queue of 1", "now playing 3", "prepare", "play"));
}

// Sharing

struct Sharing : SongStrip {
    Sharing() { port.schemes.insert("https:"); }
    const preferences::SLComposeViewController& sheet() {
        return dynamic_cast<preferences::SLComposeViewController&>(*port.presented.at(0));
    }
    tests::RecordingPort port{transcript};
};

TEST_F(Sharing, ATapOnTheSongThatPlaysSharesIt) {
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(0.5);
    vela::availability::applied().offID = "com.example.notes";
    select(0);
    EXPECT_THAT(transcript.take(), ElementsAre("probe https:", "present SLComposeViewController animated"));
    EXPECT_EQ(sheet().initialText(), "Listening to One by Band with #Vela3");
    EXPECT_EQ(sheet().serviceType(), "com.apple.social.twitter");
    EXPECT_EQ(host->homePresses, 1) << "the button goes home, and is not taken for closing the panel";
    EXPECT_EQ(vela::availability::applied().offID, "");
    EXPECT_FALSE(vela::moduleState().rightGrabber->showed());
    EXPECT_FALSE(vela::moduleState().leftGrabber->showed());
    wait(0.5);
    EXPECT_TRUE(panel().isHidden());
}

TEST_F(Sharing, TheSongThatPlaysNeedNotBeTheFirst) {
    strip().setOffsetToMusicIndex(2);
    select(0);
    EXPECT_THAT(transcript.take(), ElementsAre("queue of 1", "now playing 1", "prepare", "play"));
    select(2);
    EXPECT_EQ(sheet().initialText(), "Listening to Three by Band with #Vela3");
}

TEST_F(Sharing, ItTakesBothPanelsForClosedAtOnce) {
    vela::moduleState().leftGrabber->setShowed(true);
    vela::moduleState().rightGrabber->setShowed(true);
    select(0);
    EXPECT_FALSE(vela::moduleState().leftGrabber->showed());
    EXPECT_FALSE(vela::moduleState().rightGrabber->showed());
    EXPECT_EQ(host->homePresses, 1);
}

TEST_F(Sharing, TheSheetIsDismissedWhenItIsDone) {
    select(0);
    transcript.take();
    const auto shown = std::static_pointer_cast<preferences::SLComposeViewController>(port.presented.at(0));
    shown->complete(preferences::SLComposeViewController::Result::Cancelled);
    EXPECT_THAT(transcript.take(), ElementsAre("dismiss SLComposeViewController animated"));
}

TEST_F(Sharing, LockedNothingIsShared) {
    host->locked = true;
    select(0);
    EXPECT_THAT(transcript.take(), IsEmpty());
    EXPECT_EQ(host->homePresses, 0);
}

TEST_F(Sharing, WithoutTheServiceNothingHappens) {
    port.schemes.clear();
    select(0);
    EXPECT_THAT(transcript.take(), ElementsAre("probe https:"));
    EXPECT_EQ(host->homePresses, 0);
}

TEST_F(Sharing, TheLibrarysTitleComesBeforeTheOneCarried) {
    vela::mediaitem::setSongTitle(*strip().array()[0], "Carried");
    select(0);
    EXPECT_EQ(sheet().initialText(), "Listening to One by Band with #Vela3");
}

TEST_F(Sharing, ASongOutsideTheLibraryIsSharedWithoutItsArtist) {
    const auto song = std::make_shared<MPMediaItem>();
    vela::mediaitem::setSongTitle(*song, "On air");
    vela::mediaitem::setSongArtist(*song, "Somebody");
    strip().setArray({song});
    select(0);
    EXPECT_EQ(sheet().initialText(), "Listening to On air by  with #Vela3");
}

} // namespace
