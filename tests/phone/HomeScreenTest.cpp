#include "tests/support/PhoneTest.h"

#include "hosts/phone/applications/ClockView.h"
#include "hosts/phone/applications/PhotosView.h"
#include "hosts/phone/screens/HomeScreen.h"
#include "hosts/phone/screens/StatusBar.h"
#include "hosts/phone/screens/Switcher.h"

#include <nlohmann/json.hpp>

using namespace toolkit;
using phone::Button;

namespace {

class HomeScreen : public support::PhoneTest {
protected:
    Point iconCenter(const std::string& identifier) {
        auto* icon = find<phone::HomeIcon>(
            [&](phone::HomeIcon& each) { return each.bundleIdentifier() == identifier; });
        EXPECT_NE(icon, nullptr) << identifier;
        return icon ? icon->pictureOnScreen().center() : Point();
    }
    nlohmann::json statusBar() {
        nlohmann::json properties;
        find<phone::StatusBar>([](phone::StatusBar& bar) {
            return bar.window()->windowLevel() == 1000;
        })->describeProperties(properties);
        return properties;
    }
    /// Frames that painted something while the clock went on.
    std::uint64_t framesDuring(double seconds) {
        auto& server = WindowServer::shared();
        server.composeFrame();
        const auto before = server.compositor().paintedFrames();
        for (double end = loop.now() + seconds; loop.now() < end - 1e-9;) {
            loop.advance(std::min(foundation::RunLoop::frameInterval, end - loop.now()));
            if (server.needsFrame())
                server.composeFrame();
        }
        return server.compositor().paintedFrames() - before;
    }
};

} // namespace

TEST_F(HomeScreen, OpensEveryApplicationByItsIcon) {
    start();
    for (const auto& identifier : phone().applicationIdentifiers()) {
        tap(iconCenter(identifier));
        EXPECT_EQ(phone().frontmostIdentifier(), identifier);
        loop.advance(0.5);
        phone().press(Button::Home);
        loop.advance(0.5);
    }
}

TEST_F(HomeScreen, OpensNothingWhenTheFingerLeavesTheIcon) {
    start();
    drag(iconCenter("com.apple.Music"), {187, 200}, 10);
    EXPECT_EQ(phone().frontmostIdentifier(), "");
}

TEST_F(HomeScreen, KeepsItsIconsOnTheScreenAndApart) {
    for (const Size size : {Size{320, 480}, {320, 568}, {375, 667}, {414, 736}}) {
        phone::PhoneConfiguration configuration;
        configuration.screenSize = size;
        configuration.screenScale = 1;
        start(configuration);
        std::vector<Rect> frames;
        for (const auto& identifier : phone().applicationIdentifiers()) {
            auto* icon = find<phone::HomeIcon>(
                [&](phone::HomeIcon& each) { return each.bundleIdentifier() == identifier; });
            const Rect frame = screenFrame(*icon);
            EXPECT_EQ(frame.intersection({0, 0, size.width, size.height}), frame)
                << identifier << size.height;
            for (const Rect& other : frames)
                EXPECT_FALSE(frame.intersects(other)) << identifier << size.height;
            frames.push_back(frame);
        }
    }
}

TEST_F(HomeScreen, PaintsNothingWhileNothingChanges) {
    start();
    loop.advance(1);
    EXPECT_EQ(framesDuring(50), 0u);
}

TEST_F(HomeScreen, PaintsOneFrameAtTheNewMinute) {
    start();
    EXPECT_EQ(statusBar()["time"], "9:41");
    EXPECT_EQ(framesDuring(61), 1u);
    EXPECT_EQ(statusBar()["time"], "9:42");
}

TEST_F(HomeScreen, ShowsTheTimeOfTheClockThatItIsGiven) {
    phone::PhoneConfiguration configuration;
    configuration.wallClock = [this] { return static_cast<std::time_t>(86395 + loop.now()); }; // 23:59:55
    configuration.secondsFromUtc = 3600;
    start(configuration);
    EXPECT_EQ(statusBar()["time"], "0:59");
    loop.advance(6);
    EXPECT_EQ(statusBar()["time"], "1:00");
}

TEST_F(HomeScreen, DarkensTheStatusBarOverBrightApplications) {
    start();
    EXPECT_EQ(statusBar()["style"], "light");
    open("com.apple.mobileslideshow");
    EXPECT_EQ(statusBar()["style"], "dark");
    open("com.apple.mobiletimer");
    EXPECT_EQ(statusBar()["style"], "light");
}

TEST_F(HomeScreen, TicksOnceASecondOnlyWhileTheClockIsInFront) {
    start();
    open("com.apple.mobiletimer");
    EXPECT_EQ(framesDuring(5), 5u);
    phone().press(Button::Home);
    loop.advance(1);
    EXPECT_EQ(framesDuring(5), 0u);
    open("com.apple.mobiletimer");
    phone().lock();
    loop.advance(1);
    EXPECT_EQ(framesDuring(5), 0u);
}

TEST_F(HomeScreen, OpensAPhotographAndTurnsToTheNext) {
    start();
    open("com.apple.mobileslideshow");
    auto* viewer = find<phone::PhotoViewer>();
    ASSERT_NE(viewer, nullptr);
    EXPECT_FALSE(isShown(viewer));
    tap(find<phone::PhotoGrid>()->pictureOnScreen(2).center());
    loop.advance(0.5);
    EXPECT_TRUE(isShown(viewer));
    EXPECT_EQ(viewer->number(), 2);
    drag({300, 350}, {60, 350}, 10);
    EXPECT_EQ(viewer->number(), 3);
    loop.advance(0.5);
    drag({60, 350}, {300, 350}, 10);
    EXPECT_EQ(viewer->number(), 2);
    loop.advance(0.5);
    tap({40, 42});
    loop.advance(0.5);
    EXPECT_FALSE(isShown(viewer));
}

TEST_F(HomeScreen, DropsWhatItStartedWhenThePhoneGoes) {
    start();
    phone().openApplication("com.apple.Music");
    phone().press(Button::VolumeUp);
    phone().setKeyboardShown(true);
    start(); // in the middle of three animations
    loop.advance(3);
    EXPECT_EQ(phone().frontmostIdentifier(), "");
}
