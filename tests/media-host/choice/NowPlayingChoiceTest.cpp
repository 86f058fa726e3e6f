#include "hosts/media/choice/NowPlayingChoice.h"

#include "platform/foundation/Observers.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/runtime/Hooking.h"

#include <gmock/gmock.h>

namespace {

using foundation::PropertyList;
using playback::NowPlayingChoice;
using playback::NowPlayingSource;

/// A player that does what it is told at once.
class TestPlayer final : public NowPlayingSource {
public:
    explicit TestPlayer(std::string name) : name_(std::move(name)) {}

    void play(const std::string& title) {
        title_ = title;
        playing_ = true;
        position_ = 0;
        tell({Change::Playing, Change::Info, Change::Elapsed});
    }
    void setPlaying(bool playing) {
        playing_ = playing;
        tell({Change::Playing});
    }
    void setRadio(bool radio) {
        radio_ = radio;
        tell({Change::Info});
    }
    void clear() {
        title_.clear();
        playing_ = false;
        tell({Change::Playing, Change::Info});
    }

    std::string bundleIdentifier() const override { return "org.example." + name_; }
    std::string displayName() const override { return name_; }
    bool isPlaying() const override { return playing_; }
    bool isRadioStation() const override { return radio_; }
    PropertyList nowPlayingInfo() const override {
        if (title_.empty())
            return {};
        return PropertyList::Dictionary{{media::kMRMediaRemoteNowPlayingInfoTitle, title_}};
    }
    double elapsed() const override { return position_; }
    void perform(media::RemoteCommand) override {}
    void seek(double seconds) override {
        position_ = seconds;
        tell({Change::Elapsed});
    }
    void setVolume(double) override {}
    void launch() override {}
    foundation::Handle addObserver(std::function<void(Change)> changed) override {
        return observers_.add(std::move(changed));
    }

private:
    void tell(std::initializer_list<Change> changes) {
        for (const Change change : changes)
            observers_.notify(change);
    }
    std::string name_;
    std::string title_;
    bool playing_ = false;
    bool radio_ = false;
    double position_ = 0;
    foundation::Observers<Change> observers_;
};

struct Choice : testing::Test {
    Choice() {
        foundation::RunLoop::setMain(&loop);
        choice->add(first);
        choice->add(second);
        loop.turn();
    }
    ~Choice() override {
        first->clear();
        second->clear();
        loop.turn();
        choice.reset();
        foundation::RunLoop::setMain(nullptr);
    }
    std::string chosen() const {
        const auto player = choice->chosen();
        return player ? player->displayName() : "none";
    }
    std::string reportedTitle() const {
        const auto* title = now.currentNowPlayingInfo()[media::kMRMediaRemoteNowPlayingInfoTitle].string();
        return title ? *title : "none";
    }

    foundation::VirtualRunLoop loop;
    media::MPUNowPlayingController& now = media::MPUNowPlayingController::sharedController();
    std::shared_ptr<TestPlayer> first = std::make_shared<TestPlayer>("first");
    std::shared_ptr<TestPlayer> second = std::make_shared<TestPlayer>("second");
    std::unique_ptr<NowPlayingChoice> choice = std::make_unique<NowPlayingChoice>();
};

TEST_F(Choice, IsNoneWhileNobodyHasAnythingToPlay) {
    EXPECT_EQ(chosen(), "none");
    EXPECT_EQ(now.nowPlayingAppBundleIdentifier(), std::nullopt);
}

TEST_F(Choice, PrefersWhoPlaysToWhoIsPaused) {
    first->play("one");
    second->play("two");
    second->setPlaying(false);
    EXPECT_EQ(chosen(), "first");
}

TEST_F(Choice, PrefersWhoStartedLast) {
    second->play("two");
    first->play("one");
    EXPECT_EQ(chosen(), "first");
    second->setPlaying(false);
    second->setPlaying(true);
    EXPECT_EQ(chosen(), "second");
}

TEST_F(Choice, StaysWithWhoWasHeardLastWhenAllArePaused) {
    first->play("one");
    second->play("two");
    first->setPlaying(false);
    second->setPlaying(false);
    EXPECT_EQ(chosen(), "second");
}

TEST_F(Choice, LetsGoOfAPlayerThatHasNothingLeft) {
    first->play("one");
    first->setPlaying(false);
    second->play("two");
    second->clear();
    loop.turn();
    EXPECT_EQ(chosen(), "first");
    EXPECT_EQ(reportedTitle(), "one");
    first->clear();
    loop.turn();
    EXPECT_EQ(now.nowPlayingAppBundleIdentifier(), std::nullopt);
    EXPECT_TRUE(now.currentNowPlayingInfo().isNil());
    EXPECT_FALSE(now.isPlaying());
}

TEST_F(Choice, LetsGoOfAPlayerThatHasGone) {
    first->play("one");
    loop.turn();
    choice->remove(*first);
    loop.turn();
    EXPECT_EQ(chosen(), "none");
    EXPECT_TRUE(now.currentNowPlayingInfo().isNil());
    first->play("two"); // nobody listens
    loop.turn();
    EXPECT_EQ(reportedTitle(), "none");
}

TEST_F(Choice, ReportsTheChosenPlayer) {
    first->play("one");
    loop.turn();
    EXPECT_EQ(now.nowPlayingAppBundleIdentifier(), "org.example.first");
    EXPECT_TRUE(now.isPlaying());
    EXPECT_EQ(reportedTitle(), "one");
    second->play("two");
    loop.turn();
    EXPECT_EQ(now.nowPlayingAppBundleIdentifier(), "org.example.second");
    EXPECT_EQ(reportedTitle(), "two");
}

TEST_F(Choice, SaysNothingOfTheOthers) {
    first->play("one");
    second->play("two");
    loop.turn();
    first->play("another");
    first->setPlaying(false);
    loop.turn();
    EXPECT_EQ(reportedTitle(), "two");
    EXPECT_TRUE(now.isPlaying());
}

TEST_F(Choice, ReportsTheElapsedTimeOnceASecondWhileItPlays) {
    first->play("one");
    loop.turn();
    first->seek(20);
    loop.turn();
    EXPECT_EQ(now.currentElapsed(), 20);
    now.elapsedTimeDidChange(-1);
    loop.advance(0.9);
    EXPECT_EQ(now.currentElapsed(), -1);
    loop.advance(0.2);
    EXPECT_EQ(now.currentElapsed(), 20);
    first->setPlaying(false);
    loop.turn();
    now.elapsedTimeDidChange(-1);
    loop.advance(5);
    EXPECT_EQ(now.currentElapsed(), -1);
}

TEST_F(Choice, ReportsARadioStationBeforeItsInformation) {
    first->play("one");
    loop.turn();
    EXPECT_FALSE(now.isRadioStation());
    first->setRadio(true);
    loop.turn();
    EXPECT_TRUE(now.isRadioStation());
    second->play("two");
    loop.turn();
    EXPECT_FALSE(now.isRadioStation());
}

TEST_F(Choice, ReportsWhatBelongsTogetherOnce) {
    static int reports = 0;
    using Listener = std::function<void(runtime::Object&, runtime::Object*, PropertyList)>;
    static Listener original;
    ASSERT_TRUE(runtime::replaceMethod(
        "MPUSystemMediaControlsViewController", "nowPlayingController:nowPlayingInfoDidChange:",
        Listener([](runtime::Object& self, runtime::Object* controller, PropertyList info) {
            ++reports;
            original(self, controller, std::move(info));
        }),
        original));
    const auto controls = std::make_shared<media::MPUSystemMediaControlsViewController>(1);
    controls->view();
    loop.turn();
    reports = 0;
    first->play("one");
    first->play("two");
    loop.turn();
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(controls->mediaControlsView()->titleLabel()->text(), "two");
    first->setPlaying(false); // the rate is part of the information
    loop.turn();
    EXPECT_EQ(reports, 2);
    first->seek(5);
    loop.turn();
    EXPECT_EQ(reports, 2);
}

} // namespace
