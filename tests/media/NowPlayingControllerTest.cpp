#include "platform/media/MPUNowPlayingController.h"

#include "platform/media/MPUSystemMediaControlsViewController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/runtime/Hooking.h"
#include "platform/runtime/Message.h"
#include "tests/support/ToolkitTest.h"

namespace {

using namespace media;
using foundation::PropertyList;
using runtime::Object;
using testing::ElementsAre;

std::vector<std::string>* heard = nullptr;

/// Writes down what reaches the controls, as an extension would listen in.
template <class Argument>
void listen(const char* selector, std::function<std::string(const Argument&)> describe) {
    auto& original = *new std::function<void(Object&, Object*, Argument)>; // as long as the hook: forever
    ASSERT_TRUE(runtime::replaceMethod(
        "MPUSystemMediaControlsViewController", selector,
        std::function<void(Object&, Object*, Argument)>(
            [&original, describe](Object& self, Object* controller, Argument argument) {
                if (heard)
                    heard->push_back(describe(argument));
                original(self, controller, std::move(argument));
            }),
        original));
}

void installListeners() {
    static const bool installed = [] {
        listen<std::optional<std::string>>(
            "nowPlayingController:nowPlayingApplicationDidChange:",
            [](const auto& bundle) { return "application " + bundle.value_or("none"); });
        listen<bool>("nowPlayingController:playbackStateDidChange:",
                     [](const bool& playing) { return std::string(playing ? "plays" : "is paused"); });
        listen<PropertyList>("nowPlayingController:nowPlayingInfoDidChange:", [](const PropertyList& info) {
            const auto* title = info[kMRMediaRemoteNowPlayingInfoTitle].string();
            return "info " + (info.isNil() ? "none" : title ? *title : "without title");
        });
        listen<double>("nowPlayingController:elapsedTimeDidChange:",
                       [](const double& elapsed) { return "elapsed " + std::to_string((int)elapsed); });
        return true;
    }();
    ASSERT_TRUE(installed);
}

PropertyList info(const std::string& title) {
    return PropertyList::Dictionary{{kMRMediaRemoteNowPlayingInfoTitle, title},
                                    {kMRMediaRemoteNowPlayingInfoDuration, 100.0}};
}

struct NowPlaying : support::ToolkitTest {
    NowPlaying() {
        installListeners();
        heard = &reports;
        reset();
    }
    ~NowPlaying() override {
        reset();
        heard = nullptr;
    }
    void reset() {
        controller.setRadioStation(false);
        controller.applicationDidChange(std::nullopt);
        controller.playbackStateDidChange(false);
        controller.infoDidChange({});
        controller.elapsedTimeDidChange(0);
        reports.clear();
    }
    std::shared_ptr<MPUSystemMediaControlsViewController> hostedControls() {
        auto controls = std::make_shared<MPUSystemMediaControlsViewController>(1);
        controls->view();
        return controls;
    }

    MPUNowPlayingController& controller = MPUNowPlayingController::sharedController();
    std::vector<std::string> reports;
};

TEST_F(NowPlaying, ReachesHostedControlsInTheOrderOfTheReports) {
    const auto controls = hostedControls();
    loop.advance(0.1);
    reports.clear();
    controller.applicationDidChange("com.apple.Music");
    controller.playbackStateDidChange(true);
    controller.infoDidChange(info("Rain"));
    controller.elapsedTimeDidChange(12);
    EXPECT_THAT(reports, ElementsAre("application com.apple.Music", "plays", "info Rain", "elapsed 12"));
    EXPECT_TRUE(controller.isPlaying());
    EXPECT_EQ(controller.currentElapsed(), 12);
    EXPECT_EQ(controller.currentDuration(), 100);
    EXPECT_EQ(controller.nowPlayingAppBundleIdentifier(), "com.apple.Music");
}

TEST_F(NowPlaying, PassesTheSameReportOnTwice) {
    const auto controls = hostedControls();
    loop.advance(0.1);
    reports.clear();
    controller.infoDidChange(info("Rain"));
    controller.infoDidChange(info("Rain"));
    EXPECT_THAT(reports, ElementsAre("info Rain", "info Rain"));
}

TEST_F(NowPlaying, TellsNewControlsHowThingsStandInALaterTurn) {
    controller.applicationDidChange("org.example.player");
    controller.playbackStateDidChange(true);
    controller.infoDidChange(info("Rain"));
    controller.elapsedTimeDidChange(30);
    reports.clear();
    const auto controls = hostedControls();
    EXPECT_TRUE(reports.empty());
    controller.elapsedTimeDidChange(31); // reaches them at once, and once more with the rest
    reports.clear();
    loop.advance(0.1);
    EXPECT_THAT(reports, ElementsAre("application org.example.player", "plays", "info Rain", "elapsed 31"));
}

TEST_F(NowPlaying, TellsNewControlsOnlyOfTheMissingApplicationWhileNothingPlays) {
    const auto controls = hostedControls();
    loop.advance(0.1);
    EXPECT_THAT(reports, ElementsAre("application none"));
}

TEST_F(NowPlaying, ForgetsControlsThatAreGone) {
    auto controls = hostedControls();
    controls.reset();
    loop.advance(0.1);
    controller.infoDidChange(info("Rain"));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(controller.controls().empty());
}

TEST_F(NowPlaying, AnswersIsPlayingAsAMessage) {
    const runtime::Message<bool()> isPlaying{"isPlaying"};
    EXPECT_FALSE(isPlaying(controller));
    controller.playbackStateDidChange(true);
    EXPECT_TRUE(isPlaying(controller));
}

TEST_F(NowPlaying, ShowsTheRadioFlagAsAnInstanceVariableOfTheControls) {
    const auto controls = hostedControls();
    const auto flag = [&] {
        const auto variable = controls->isa().instanceVariable(*controls, "_nowPlayingIsRadioStation");
        return std::dynamic_pointer_cast<runtime::Boolean>(variable);
    };
    ASSERT_NE(flag(), nullptr);
    EXPECT_FALSE(flag()->value());
    controller.setRadioStation(true);
    EXPECT_TRUE(flag()->value());
    const auto later = hostedControls();
    EXPECT_TRUE(later->nowPlayingIsRadioStation());
}

TEST_F(NowPlaying, TakesNoDurationThatIsNoLength) {
    for (const PropertyList& duration : {PropertyList(-5.0), PropertyList("a while"), PropertyList(),
                                         PropertyList(std::numeric_limits<double>::infinity())}) {
        controller.infoDidChange(PropertyList::Dictionary{{kMRMediaRemoteNowPlayingInfoDuration, duration}});
        EXPECT_EQ(controller.currentDuration(), 0);
    }
    controller.infoDidChange("no dictionary");
    EXPECT_EQ(controller.currentDuration(), 0);
}

} // namespace
