#include "tests/vela/support/ProductTest.h"

#include "vela/startup/ModuleState.h"
#include "vela/startup/ScreenGeometry.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/startup/ViewController.h"

using toolkit::DeviceOrientation;
using toolkit::Rect;
using vela::ViewController;

namespace {

struct ScreenGeometry : tests::ProductTest {
    ScreenGeometry() { launch(); }

    homescreen::SpringBoard& spring() { return *host->springBoard; }

    /// The frame that a fresh window gets from a controller of `type`.
    Rect refreshed(std::int64_t type) {
        window = std::make_shared<toolkit::UIWindow>(Rect{1, 2, 3, 4});
        ViewController controller(type);
        controller.setWindow(window.get());
        controller.refresh();
        return window->frame();
    }
    std::shared_ptr<toolkit::UIWindow> window;
};

TEST_F(ScreenGeometry, TheScreenRectangleTurnsWithTheOrientationAskedFor) {
    const ViewController controller(ViewController::Sharing);
    const auto both = [&](std::int64_t orientation) {
        const Rect answer = vela::messages::getScreenFrameByOrientation(spring(), orientation);
        EXPECT_EQ(answer, controller.getScreenFrameByOrientation(orientation));
        return answer;
    };
    screen(320, 568);
    EXPECT_EQ(both(3), Rect(0, 0, 568, 320));
    EXPECT_EQ(both(4), Rect(0, 0, 568, 320));
    for (std::int64_t orientation : {0, 1, 2, 5, 6, -7, 99})
        EXPECT_EQ(both(orientation), Rect(0, 0, 320, 568));
    screen(568, 320);
    EXPECT_EQ(both(5), Rect(0, 0, 320, 568));
    EXPECT_EQ(both(1), Rect(0, 0, 320, 568));
    EXPECT_EQ(both(3), Rect(0, 0, 568, 320));
}

TEST_F(ScreenGeometry, PanelWidthsAreFractionsOfTheScreensWidth) {
    preferences({{"left_size_portrait", 0.8}, {"left_size_landscape", 0.4}, {"right_size_portrait", 0.75}});
    EXPECT_EQ(vela::messages::leftSize(spring()), 300.0f);
    EXPECT_EQ(vela::messages::rightSize(spring()), 281.25f);
    EXPECT_EQ(vela::messages::rightScaleLandscape(spring()), 0.0f);
    EXPECT_EQ(refreshed(ViewController::LeftPanel), Rect(-300, 0, 300, 667));
    EXPECT_EQ(refreshed(ViewController::RightPanel), Rect(375, 0, 281.25, 667));
    screen(667, 375);
    EXPECT_EQ(vela::messages::leftSize(spring()), static_cast<float>(667.0 * static_cast<double>(0.4f)));
}

TEST_F(ScreenGeometry, FractionsAreSinglePrecisionAndWidthsRoundedToIt) {
    preferences({{"left_size_portrait", 0.7}});
    const float width = static_cast<float>(375.0 * static_cast<double>(0.7f));
    EXPECT_EQ(vela::messages::leftScalePortrait(spring()), 0.7f);
    EXPECT_EQ(vela::messages::leftSize(spring()), width);
    EXPECT_EQ(refreshed(ViewController::LeftPanel), Rect(-static_cast<double>(width), 0, width, 667));
}

TEST_F(ScreenGeometry, AWidthForAnOrientationIsOfTheWidthThatTheScreenHasNow) {
    preferences({{"left_size_portrait", 0.8}, {"left_size_landscape", 0.5}, {"right_size_landscape", 0.25}});
    EXPECT_EQ(vela::messages::leftSizeForOrientation(spring(), 3), 187.5f);
    EXPECT_EQ(vela::messages::leftSizeForOrientation(spring(), 4), 187.5f);
    EXPECT_EQ(vela::messages::leftSizeForOrientation(spring(), 1), 300.0f);
    EXPECT_EQ(vela::messages::leftSizeForOrientation(spring(), 5), 300.0f);
    EXPECT_EQ(vela::messages::rightSizeForOrientation(spring(), 4), 93.75f);
}

TEST_F(ScreenGeometry, AnAbsentSizeGivesAPanelWithoutWidth) {
    preferences({});
    EXPECT_EQ(refreshed(ViewController::RightPanel), Rect(375, 0, 0, 667));
    EXPECT_EQ(refreshed(ViewController::LeftPanel), Rect(0, 0, 0, 667));
}

TEST_F(ScreenGeometry, GrabberStripsFollowHeightAndSensibility) {
    preferences({{"Grabber height", "half_bottom"}});
    EXPECT_EQ(refreshed(ViewController::RightGrabber), Rect(360, 333.5, 15, 333.5));
    EXPECT_EQ(refreshed(ViewController::LeftGrabber), Rect(0, 333.5, 15, 333.5));
    preferences({{"Grabber height", "half_top"}, {"Sensibility", "Height"}});
    EXPECT_EQ(refreshed(ViewController::RightGrabber), Rect(345, 0, 30, 333.5));
    preferences({{"Grabber height", "full"}, {"Sensibility", "Low"}});
    EXPECT_EQ(refreshed(ViewController::LeftGrabber), Rect(0, 0, 5, 667));
    preferences({});
    EXPECT_EQ(refreshed(ViewController::LeftGrabber), Rect(0, 0, 15, 667));
}

TEST_F(ScreenGeometry, TheStripsHeightIsRoundedToSinglePrecisionAndItsTopIsNot) {
    screen(375, 1001.1);
    preferences({{"Grabber height", "half_bottom"}});
    const Rect frame = refreshed(ViewController::LeftGrabber);
    EXPECT_EQ(window->bounds().height, static_cast<double>(static_cast<float>(1001.1 * 0.5)));
    EXPECT_NEAR(frame.y, 1001.1 * 0.5, 1e-9);
}

TEST_F(ScreenGeometry, WindowsFollowTheDevicesOrientationNotTheInterfaces) {
    preferences({{"left_size_portrait", 0.8}, {"left_size_landscape", 0.5}, {"right_size_landscape", 0.5}});
    device(DeviceOrientation::LandscapeLeft);
    EXPECT_EQ(refreshed(ViewController::LeftPanel), Rect(-333.5, 0, 333.5, 375));
    EXPECT_EQ(refreshed(ViewController::RightPanel), Rect(667, 0, 333.5, 375));
    EXPECT_EQ(refreshed(ViewController::RightGrabber), Rect(652, 0, 15, 375));
    EXPECT_EQ(refreshed(ViewController::Sharing), Rect(0, 0, 667, 375));
    device(DeviceOrientation::FaceUp);
    EXPECT_EQ(refreshed(ViewController::Sharing), Rect(0, 0, 375, 667));
}

TEST_F(ScreenGeometry, TheDimmingWindowCoversTheScreenUnseen) {
    EXPECT_EQ(refreshed(ViewController::Dimming), Rect(0, 0, 375, 667));
    EXPECT_EQ(window->alpha(), 0);
    EXPECT_EQ(refreshed(ViewController::Sharing), Rect(0, 0, 375, 667));
    EXPECT_EQ(window->alpha(), 1);
}

TEST_F(ScreenGeometry, AControllerOfAnotherTypeLeavesItsWindowAlone) {
    EXPECT_EQ(refreshed(6), Rect(1, 2, 3, 4));
    EXPECT_EQ(refreshed(-1), Rect(1, 2, 3, 4));
    ViewController(ViewController::Sharing).refresh(); // has no window
}

TEST_F(ScreenGeometry, ControllersTurnEveryWay) {
    const ViewController controller(ViewController::LeftPanel);
    EXPECT_TRUE(controller.shouldAutorotate());
    EXPECT_EQ(controller.supportedInterfaceOrientations(), 30u);
}

TEST_F(ScreenGeometry, AChangeOfTheScreensSizeRefreshesAlongsideAndPassesTheNewsOn) {
    struct Coordinator : toolkit::TransitionCoordinator {
        void animateAlongside(std::function<void()> block, std::function<void()> completion) override {
            alongside.push_back(std::move(block));
            hasCompletion = hasCompletion || completion;
        }
        std::vector<std::function<void()>> alongside;
        bool hasCompletion = false;
    } coordinator;
    struct Child : toolkit::UIViewController {
        void viewWillTransitionToSize(toolkit::Size size, toolkit::TransitionCoordinator&) override {
            told.push_back(size);
        }
        std::vector<toolkit::Size> told;
    };
    const auto child = std::make_shared<Child>();
    window = std::make_shared<toolkit::UIWindow>(Rect{});
    ViewController controller(ViewController::Sharing);
    controller.setWindow(window.get());
    controller.addChildViewController(child);
    controller.viewWillTransitionToSize({667, 375}, coordinator);
    EXPECT_EQ(child->told, (std::vector<toolkit::Size>{{667, 375}}));
    EXPECT_EQ(window->frame(), Rect());
    ASSERT_EQ(coordinator.alongside.size(), 1u);
    EXPECT_FALSE(coordinator.hasCompletion);
    coordinator.alongside.front()();
    EXPECT_EQ(window->frame(), Rect(0, 0, 375, 667));
}

} // namespace
