#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/toolkit/views/UIVisualEffectView.h"
#include "tests/support/Finger.h"
#include "tests/support/TestMediaPort.h"
#include "tests/support/ToolkitTest.h"

#include <limits>

namespace {

using namespace media;
using namespace toolkit;
using foundation::PropertyList;
using testing::ElementsAre;

/// Controls in a window of their own, on glass.
struct Controls : support::ToolkitTest {
    Controls() : window(shownWindow({0, 0, 300, 160})), glass(std::make_shared<UIVisualEffectView>()) {
        now.setRadioStation(false);
        window->addSubview(glass);
        window->setRootViewController(controller);
        controller->view()->setFrame({0, 0, 300, 160});
        view().setUserInteractionEnabled(true);
        now.volumeDidChange(0.5);
        loop.advance(0.1);
    }
    ~Controls() override {
        now.infoDidChange({});
        now.playbackStateDidChange(false);
        now.applicationDidChange(std::nullopt);
        now.setRadioStation(false);
    }
    MPUMediaControlsView& view() { return *controller->mediaControlsView(); }
    static Point middleOf(const UIView& part) { return part.convertRectTo(part.bounds(), nullptr).center(); }
    void play(const std::string& title, const std::string& artist, double duration = 200) {
        now.applicationDidChange("com.apple.Music");
        now.playbackStateDidChange(true);
        now.infoDidChange(PropertyList::Dictionary{{kMRMediaRemoteNowPlayingInfoTitle, title},
                                                   {kMRMediaRemoteNowPlayingInfoArtist, artist},
                                                   {kMRMediaRemoteNowPlayingInfoAlbum, "Low Water"},
                                                   {kMRMediaRemoteNowPlayingInfoDuration, duration}});
        loop.advance(0.1);
        port.calls.clear();
    }

    tests::TestMediaPort port;
    MPUNowPlayingController& now = MPUNowPlayingController::sharedController();
    std::shared_ptr<UIWindow> window;
    std::shared_ptr<UIVisualEffectView> glass;
    std::shared_ptr<MPUSystemMediaControlsViewController> controller =
        std::make_shared<MPUSystemMediaControlsViewController>(1);
    support::Finger finger{loop};
};

TEST_F(Controls, ShowWhatPlaysAndHowLong) {
    play("Paper Boats", "The Long Tide");
    now.elapsedTimeDidChange(65.9);
    EXPECT_EQ(view().titleLabel()->text(), "Paper Boats");
    EXPECT_EQ(view().subtitleLabel()->text(), "The Long Tide — Low Water");
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "1:05");
    EXPECT_EQ(view().timeView()->remainingLabel()->text(), "-2:15");
    EXPECT_NEAR(view().timeView()->scrubber()->value(), 65.9 / 200, 1e-9);
    EXPECT_EQ(view().playPauseButton()->sign(), TransportSign::Pause);
    now.playbackStateDidChange(false);
    EXPECT_EQ(view().playPauseButton()->sign(), TransportSign::Play);
}

TEST_F(Controls, AreEmptyWhenNothingPlays) {
    play("Paper Boats", "The Long Tide");
    now.elapsedTimeDidChange(30);
    now.infoDidChange({});
    EXPECT_EQ(view().titleLabel()->text(), "");
    EXPECT_EQ(view().subtitleLabel()->text(), "");
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "0:00");
    EXPECT_TRUE(view().timeView()->remainingLabel()->isHidden());
    EXPECT_FALSE(view().timeView()->scrubber()->isEnabled());
}

TEST_F(Controls, WriteTimesAsClocksDo) {
    using View = MPUChronologicalProgressView;
    EXPECT_EQ(View::timeText(0), "0:00");
    EXPECT_EQ(View::timeText(59.99), "0:59");
    EXPECT_EQ(View::timeText(3599), "59:59");
    EXPECT_EQ(View::timeText(3765), "1:02:45");
    EXPECT_EQ(View::timeText(-4), "0:00");
    EXPECT_EQ(View::timeText(std::numeric_limits<double>::quiet_NaN()), "0:00");
    EXPECT_EQ(View::timeText(1e300), "99:59:59");
}

TEST_F(Controls, SendTheCommandsOfTheirButtons) {
    play("Paper Boats", "The Long Tide");
    finger.tap(middleOf(*view().previousButton()));
    finger.tap(middleOf(*view().playPauseButton()));
    finger.tap(middleOf(*view().nextButton()));
    EXPECT_THAT(port.calls, ElementsAre("PreviousTrack", "TogglePlayPause", "NextTrack"));
}

TEST_F(Controls, LaunchThePlayingApplicationByATapOnItsTitle) {
    play("Paper Boats", "The Long Tide");
    now.applicationDidChange("org.example.player");
    finger.tap(middleOf(*view().titleLabel()));
    EXPECT_THAT(port.calls, ElementsAre("launch org.example.player"));
    port.calls.clear();
    now.applicationDidChange(std::nullopt);
    controller->_launchCurrentNowPlayingApp();
    EXPECT_THAT(port.calls, ElementsAre("launch com.apple.Music"));
}

TEST_F(Controls, WindTheSongWhenTheFingerLetsGoOfTheMark) {
    play("Paper Boats", "The Long Tide");
    const auto& scrubber = *view().timeView()->scrubber();
    finger.down(middleOf(scrubber));
    finger.moveTo({middleOf(scrubber).x + scrubber.bounds().width, middleOf(scrubber).y}, 10);
    EXPECT_TRUE(port.calls.empty());
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "3:20");
    now.elapsedTimeDidChange(10); // reports do not tear the mark from the finger
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "3:20");
    finger.up();
    EXPECT_THAT(port.calls, ElementsAre("seek 200.00"));
    now.elapsedTimeDidChange(100);
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "1:40");
}

TEST_F(Controls, WindNothingWithoutALength) {
    play("Paper Boats", "The Long Tide", 0);
    finger.down(middleOf(*view().timeView()->scrubber()));
    finger.moveTo({250, 16}, 5);
    finger.up();
    EXPECT_TRUE(port.calls.empty());
}

TEST_F(Controls, ShowAStreamAsLive) {
    now.setRadioStation(true);
    now.infoDidChange(PropertyList::Dictionary{{kMRMediaRemoteNowPlayingInfoTitle, ""},
                                               {kMRMediaRemoteNowPlayingInfoRadioStationName, "Night"}});
    EXPECT_EQ(view().titleLabel()->text(), "Night");
    EXPECT_TRUE(view().timeView()->alwaysLive());
    EXPECT_TRUE(view().timeView()->scrubber()->isHidden());
    EXPECT_TRUE(view().timeView()->elapsedLabel()->isHidden());
}

TEST_F(Controls, ShowAnyTitleOnOneLine) {
    for (const std::string& title : {std::string(10'000, 'x'), std::string("a\nb\tc\r"),
                                     std::string("a\0b", 3), std::string("\xff\xfe broken"), std::string()}) {
        play(title, title);
        EXPECT_LE(view().titleLabel()->text().size(), 1000u);
        EXPECT_EQ(view().titleLabel()->text().find_first_of(std::string("\n\r\t\0", 4)), std::string::npos);
        WindowServer::shared().composeFrame();
    }
}

TEST_F(Controls, SurviveInformationOfTheWrongTypes) {
    for (const PropertyList& value :
         {PropertyList(5), PropertyList(true), PropertyList(PropertyList::Array{}),
          PropertyList(std::numeric_limits<double>::quiet_NaN())}) {
        now.infoDidChange(PropertyList::Dictionary{{kMRMediaRemoteNowPlayingInfoTitle, value},
                                                   {kMRMediaRemoteNowPlayingInfoArtist, value},
                                                   {kMRMediaRemoteNowPlayingInfoDuration, value}});
        EXPECT_EQ(view().titleLabel()->text(), "");
    }
    now.infoDidChange("no dictionary");
    now.elapsedTimeDidChange(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(view().timeView()->elapsedTime(), 0);
}

TEST_F(Controls, SetTheVolumeOnceMoreAfterTheSliderIsLetGo) {
    std::vector<std::string>& calls = port.calls;
    const auto& volume = *view().volumeView();
    const Point middle = middleOf(*volume.slider());
    calls.clear();
    finger.down(middle);
    EXPECT_TRUE(volume.isChanging());
    finger.moveTo({middle.x + 20, middle.y}, 2);
    EXPECT_EQ(calls.size(), 2u);
    EXPECT_TRUE(volume.isChanging());
    finger.up();
    EXPECT_FALSE(volume.isChanging());
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[2], calls[1]);
}

TEST_F(Controls, FollowThePhonesVolumeUnlessAFingerHoldsTheSlider) {
    const auto& slider = view().volumeView()->slider();
    now.volumeDidChange(0.25);
    EXPECT_EQ(slider->value(), 0.25f);
    finger.down(middleOf(*slider));
    now.volumeDidChange(1);
    EXPECT_EQ(slider->value(), 0.25f);
    finger.up();
}

TEST_F(Controls, AreReadableOnTheGlassBeneathThem) {
    glass->setEffect(VisualEffect::blur(BlurEffectStyle::Light));
    loop.turn();
    EXPECT_LT(view().titleLabel()->textColor().red, 0.5);
    glass->setEffect(VisualEffect::blur(BlurEffectStyle::Dark));
    loop.turn();
    EXPECT_GT(view().titleLabel()->textColor().red, 0.5);
}

TEST_F(Controls, KeepToTheirStyleWhereThereIsNoGlass) {
    EXPECT_GT(view().titleLabel()->textColor().red, 0.5);
    const auto dark = std::make_shared<MPUSystemMediaControlsViewController>(0);
    dark->view();
    EXPECT_LT(dark->mediaControlsView()->titleLabel()->textColor().red, 0.5);
}

TEST_F(Controls, DrawNothingInAWindowThatIsHidden) {
    play("Paper Boats", "The Long Tide");
    window->setHidden(true);
    WindowServer::shared().composeFrame();
    const auto painted = WindowServer::shared().compositor().paintedFrames();
    for (int second = 1; second <= 10; ++second) {
        now.elapsedTimeDidChange(second);
        loop.advance(1);
    }
    EXPECT_EQ(WindowServer::shared().compositor().paintedFrames(), painted);
    EXPECT_EQ(view().timeView()->elapsedLabel()->text(), "0:10");
}

TEST_F(Controls, DrawNothingWhileTheyShowTheSame) {
    play("Paper Boats", "The Long Tide");
    WindowServer::shared().composeFrame();
    now.elapsedTimeDidChange(0);
    loop.turn();
    WindowServer::shared().composeFrame();
    now.elapsedTimeDidChange(0);
    loop.turn();
    EXPECT_FALSE(WindowServer::shared().needsFrame());
}

} // namespace
