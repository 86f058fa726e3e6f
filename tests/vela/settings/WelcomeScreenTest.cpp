#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/AVPlayerViewController.h"
#include "vela/settings/tutorialController.h"
#include "vela/stores/Paths.h"
#include "vela/stores/ProductConfiguration.h"

#include <algorithm>

using preferences::AVPlayerViewController;
using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::Color;

namespace {

struct WelcomeScreen : tests::SettingsTest {
    WelcomeScreen() {
        foundation::FileManager::shared().writeDictionaryAtomically(
            vela::paths::configuration, {{"Tutorial video", "https://film.example/t.m3u8"}});
    }
    void layOut(toolkit::Size size) {
        screen->view()->setFrame({{}, size});
        screen->view()->layoutIfNeeded();
    }

    std::shared_ptr<vela::tutorialController> screen = std::make_shared<vela::tutorialController>();
};

TEST_F(WelcomeScreen, Welcomes) {
    EXPECT_EQ(screen->view()->backgroundColor(), Color::white(1));
    const auto& label = *screen->welcome();
    EXPECT_EQ(label.text(), "Welcome to \nVela");
    EXPECT_EQ(label.textColor(), Color::black());
    EXPECT_EQ(label.textAlignment(), toolkit::TextAlignment::Center);
    EXPECT_EQ(label.font(), toolkit::Font::system(30));
    EXPECT_EQ(label.numberOfLines(), 0);
    const auto& button = *screen->ok();
    EXPECT_EQ(button.title(), "Tutorial");
    EXPECT_EQ(button.titleLabel()->textColor(), Color::rgba(0.05, 0.4, 1, 1));
    EXPECT_TRUE(button.backgroundColor()->isClear());
    EXPECT_THAT(screen->view()->subviews(), ElementsAre(screen->welcome(), screen->ok()));
}

TEST_F(WelcomeScreen, PlacesItsButtonAtThreeQuarters) {
    for (const toolkit::Size size :
         {toolkit::Size{375, 667}, toolkit::Size{667, 375}, toolkit::Size{1000, 800}}) {
        layOut(size);
        EXPECT_EQ(screen->welcome()->frame(), toolkit::Rect({}, size));
        const toolkit::Size fitted = screen->ok()->sizeThatFits({});
        EXPECT_FALSE(fitted.isEmpty());
        EXPECT_EQ(screen->ok()->frame(), toolkit::Rect((size.width - fitted.width) / 2, size.height * 3 / 4,
                                                       fitted.width, fitted.height));
    }
}

TEST_F(WelcomeScreen, LeavesBeforeTheFilmAndPlaysItOnceItStands) {
    port.present(screen, true, {});
    transcript.take();
    screen->ok()->sendActions(toolkit::ControlEvent::TouchUpInside);
    EXPECT_THAT(transcript.take(), ElementsAre("dismiss tutorialController animated"));
    EXPECT_THAT(port.presented, IsEmpty());
    std::exchange(port.completion, {})();
    EXPECT_THAT(transcript.take(), ElementsAre("present AVPlayerViewController animated"));
    const auto film = std::dynamic_pointer_cast<AVPlayerViewController>(port.presented.back());
    EXPECT_EQ(film->player()->url(), "https://film.example/t.m3u8");
    EXPECT_FALSE(film->player()->isPlaying());
    std::exchange(port.completion, {})();
    EXPECT_TRUE(film->player()->isPlaying());
}

TEST_F(WelcomeScreen, HasAFilmOfItsOwnOnANewDevice) {
    auto& files = foundation::FileManager::shared();
    files.setDeviceRoot(std::filesystem::path(VELA_SOURCE_DIR) / "resources/device");
    const std::string address = vela::ProductConfiguration::shared().tutorialVideo();
    ASSERT_TRUE(address.starts_with("file:///")) << address;
    const auto film = files.read(address.substr(std::string("file://").size()));
    ASSERT_TRUE(film);
    const std::vector<std::uint8_t> webm{0x1a, 0x45, 0xdf, 0xa3};
    EXPECT_TRUE(std::equal(webm.begin(), webm.end(), film->begin()));
}

TEST_F(WelcomeScreen, GoesWhileTheFilmIsStillToCome) {
    screen->showTutorial();
    screen.reset();
    std::exchange(port.completion, {})();
    EXPECT_THAT(transcript.take(), ElementsAre("dismiss tutorialController animated",
                                               "present AVPlayerViewController animated"));
}

} // namespace
