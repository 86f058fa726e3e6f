#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/homescreen/SBHUDController.h"
#include "platform/homescreen/SBLockScreenViewController.h"
#include "platform/homescreen/SBUIController.h"
#include "platform/media/MPMediaItem.h"
#include "platform/media/MPUMediaControlsView.h"
#include "platform/runtime/Message.h"
#include "vela/panels/darkingWindow.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/AvailabilityCycle.h"
#include "vela/startup/MediaItemProperties.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SystemEvents.h"

namespace {

struct SystemEvents : tests::ProductTest {
    SystemEvents() {
        preferences(usualPreferences());
        launch();
        observer = foundation::NotificationCenter::defaultCenter().addObserver(
            vela::leftWindowGrabber::notificationName, [this](const foundation::Notification& notification) {
                posted.push_back(*notification.object["name"].string());
            });
    }
    void openRight() {
        touchDown(370, 300);
        touchMove(100, 300, 0.2);
        touchUp();
        wait(0.5);
        ASSERT_TRUE(state.rightGrabber->showed());
    }
    bool pressHome() { return homescreen::SBUIController::sharedInstance().clickedMenuButton(); }
    void presentVolume() { homescreen::SBHUDController::sharedHUDController().presentHUDView(nullptr, 1.5); }
    media::MPUMediaControlsVolumeView& panelsVolumeView() {
        auto view =
            std::dynamic_pointer_cast<media::MPUMediaControlsView>(state.right->mediaController()->view());
        return *view->volumeView();
    }

    vela::ModuleState& state = vela::moduleState();
    std::vector<std::string> posted;
    foundation::Handle observer;
};

TEST_F(SystemEvents, HomeWithThePanelOpenClosesBothPanelsAndNothingElse) {
    openRight();
    vela::availability::applied().offID = "com.example.notes";
    EXPECT_TRUE(pressHome());
    EXPECT_EQ(host->homePresses, 0);
    EXPECT_EQ(vela::availability::applied().offID, "com.example.notes");
    EXPECT_EQ(posted, std::vector<std::string>{"dismissed"});
    wait(0.3);
    EXPECT_FALSE(state.rightGrabber->showed());
    EXPECT_TRUE(state.right->isHidden());
    EXPECT_TRUE(state.left->isHidden());
}

TEST_F(SystemEvents, HomeWithTheLeftPanelOpenClosesItToo) {
    touchDown(5, 300);
    touchMove(305, 300, 0.3);
    touchUp();
    wait(0.5);
    ASSERT_TRUE(state.leftGrabber->showed());
    posted.clear();
    EXPECT_TRUE(pressHome());
    EXPECT_EQ(host->homePresses, 0);
    EXPECT_EQ(posted, std::vector<std::string>{"dismissed"});
    wait(0.31);
    EXPECT_FALSE(state.leftGrabber->showed());
    EXPECT_TRUE(state.left->isHidden());
}

TEST_F(SystemEvents, HomeIsSwallowedUntilTheDismissalHasFinished) {
    openRight();
    pressHome();
    wait(0.29);
    EXPECT_TRUE(pressHome());
    EXPECT_EQ(host->homePresses, 0);
    wait(0.5);
    pressHome();
    EXPECT_EQ(host->homePresses, 1);
}

TEST_F(SystemEvents, HomeWithoutAnOpenPanelClearsOffIDAndActsAsUsual) {
    vela::availability::applied().offID = "com.example.notes";
    EXPECT_TRUE(pressHome());
    EXPECT_EQ(host->homePresses, 1);
    EXPECT_EQ(vela::availability::applied().offID, "");
    EXPECT_TRUE(posted.empty());
}

TEST_F(SystemEvents, ADoublePressIsTreatedLikeASingleOne) {
    EXPECT_TRUE(homescreen::SBUIController::sharedInstance().handleMenuDoubleTap());
    EXPECT_EQ(host->doublePresses, 1);
    openRight();
    EXPECT_TRUE(homescreen::SBUIController::sharedInstance().handleMenuDoubleTap());
    EXPECT_EQ(host->doublePresses, 1);
    wait(0.3);
    EXPECT_FALSE(state.rightGrabber->showed());
}

TEST_F(SystemEvents, DisplayOffClosesThePanelsAndRemembersTheApplicationInFront) {
    openRight();
    host->top = std::make_shared<homescreen::SBApplication>("com.example.notes", "Notes");
    homescreen::SBLockScreenViewController controller;
    controller._handleDisplayTurnedOff();
    EXPECT_EQ(host->displayOffs, 1);
    EXPECT_EQ(vela::availability::applied().offID, "com.example.notes");
    EXPECT_EQ(posted, std::vector<std::string>{"dismissed"});
    wait(0.3);
    EXPECT_FALSE(state.rightGrabber->showed());
}

TEST_F(SystemEvents, DisplayOffAsksWhatIsInFrontOnceTheHostHasActed) {
    host->top = std::make_shared<homescreen::SBApplication>("com.example.notes", "Notes");
    host->duringDisplayOff = [this] {
        EXPECT_TRUE(posted.empty());
        host->top = nullptr;
    };
    homescreen::SBLockScreenViewController()._handleDisplayTurnedOff();
    EXPECT_EQ(vela::availability::applied().offID, "");
    EXPECT_EQ(posted, std::vector<std::string>{"dismissed"});
}

TEST_F(SystemEvents, DisplayOffOnTheHomeScreenOrOverANamelessThingRemembersNothing) {
    homescreen::SBLockScreenViewController controller;
    vela::availability::applied().offID = "old";
    controller._handleDisplayTurnedOff();
    EXPECT_EQ(vela::availability::applied().offID, "");
    vela::availability::applied().offID = "old";
    host->top = std::make_shared<runtime::Object>();
    controller._handleDisplayTurnedOff();
    EXPECT_EQ(vela::availability::applied().offID, "");
}

TEST_F(SystemEvents, AfterASliderDragExactlyOneVolumeDisplayIsSwallowed) {
    presentVolume();
    EXPECT_EQ(host->huds, 1);
    panelsVolumeView()._volumeSliderBeganChanging(nullptr);
    EXPECT_TRUE(panelsVolumeView().isChanging());
    presentVolume();
    presentVolume();
    EXPECT_EQ(host->huds, 1);
    panelsVolumeView()._volumeSliderStoppedChanging(nullptr);
    EXPECT_FALSE(panelsVolumeView().isChanging());
    wait(60);
    EXPECT_EQ(host->huds, 1);
    presentVolume();
    EXPECT_EQ(host->huds, 1);
    presentVolume();
    EXPECT_EQ(host->huds, 2);
}

TEST_F(SystemEvents, AVolumeDisplayThatIsShownIsTheOneThatWasAskedFor) {
    const auto view = std::make_shared<toolkit::UIView>();
    homescreen::SBHUDController::sharedHUDController().presentHUDView(view, 1.25);
    EXPECT_EQ(host->hudView, view);
    EXPECT_EQ(host->hudDelay, 1.25);
}

TEST_F(SystemEvents, AnotherVolumeViewDoesNotTouchTheGate) {
    media::MPUMediaControlsVolumeView other;
    other._volumeSliderBeganChanging(nullptr);
    EXPECT_EQ(vela::events::canShowHUD(), 2);
    other._volumeSliderStoppedChanging(nullptr);
    EXPECT_EQ(vela::events::canShowHUD(), 2);
    presentVolume();
    EXPECT_EQ(host->huds, 1);
}

TEST_F(SystemEvents, TheBeganHookLooksAtTheGateFirstAndTheStoppedHookDoesNot) {
    vela::events::canShowHUD() = vela::events::Suppressed;
    panelsVolumeView()._volumeSliderBeganChanging(nullptr);
    EXPECT_EQ(vela::events::canShowHUD(), 0);
    vela::events::canShowHUD() = vela::events::Shown;
    panelsVolumeView()._volumeSliderStoppedChanging(nullptr);
    EXPECT_EQ(vela::events::canShowHUD(), 1);
    panelsVolumeView()._volumeSliderBeganChanging(nullptr);
    EXPECT_EQ(vela::events::canShowHUD(), 0);
}

TEST_F(SystemEvents, MediaItemsCarryTheSongsProperties) {
    media::MPMediaItem item;
    const runtime::Message<std::optional<std::string>()> songTitle{"songTitle"}, songArtist{"songArtist"};
    const runtime::Message<void(std::optional<std::string>)> setTitle{"setSongTitle:"},
        setArtist{"setSongArtist:"};
    EXPECT_EQ(songTitle(item), std::nullopt);
    setTitle(item, "Night");
    EXPECT_EQ(songTitle(item), "Night");
    EXPECT_EQ(songArtist(item), std::nullopt);
    setArtist(item, "Mira");
    EXPECT_EQ(songArtist(item), "Mira");
    EXPECT_EQ(songTitle(item), "Night");
    setTitle(item, std::nullopt);
    EXPECT_EQ(songTitle(item), std::nullopt);
    const auto artwork = std::make_shared<media::MPMediaItemArtwork>(tests::greyImage(3));
    const runtime::Message<void(std::shared_ptr<media::MPMediaItemArtwork>)> setArtwork{"setSongArtwork:"};
    setArtwork(item, artwork);
    EXPECT_EQ(runtime::Message<std::shared_ptr<media::MPMediaItemArtwork>()>("songArtwork")(item), artwork);
}

} // namespace
