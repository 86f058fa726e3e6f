#include "platform/toolkit/windows/WindowServer.h"
#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/UIApplication.h"
#include "platform/toolkit/windows/UIDevice.h"
#include "tests/support/ToolkitTest.h"

#include <numbers>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SecureWindow : public UIWindow {
public:
    using UIWindow::UIWindow;
    bool _shouldCreateContextAsSecure() const override { return true; }
};

class WindowServerTest : public support::ToolkitTest {
protected:
    template <class Window = UIWindow>
    std::shared_ptr<Window> paintedWindow(Rect frame, double level = 0) {
        auto window = shownWindow<Window>(frame);
        window->setBackgroundColor(Color::black());
        window->setWindowLevel(level);
        return window;
    }
    WindowServer& server = WindowServer::shared();
};

TEST_F(WindowServerTest, KnowsAWindowFromItsCreationToItsEnd) {
    auto window = std::make_shared<UIWindow>(Rect{0, 0, 10, 10});
    EXPECT_TRUE(window->isHidden());
    EXPECT_THAT(server.windows(), ElementsAre(window.get()));
    window = nullptr;
    EXPECT_THAT(server.windows(), IsEmpty());
}

TEST_F(WindowServerTest, OrdersByLevelThenByWhenShown) {
    const auto a = paintedWindow({0, 0, 10, 10}), b = paintedWindow({0, 0, 10, 10}),
               high = paintedWindow({0, 0, 10, 10}, 2001), low = paintedWindow({0, 0, 10, 10}, -1);
    EXPECT_THAT(server.windows(), ElementsAre(low.get(), a.get(), b.get(), high.get()));
    a->setHidden(true);
    a->setHidden(false);
    EXPECT_THAT(server.windows(), ElementsAre(low.get(), b.get(), a.get(), high.get()));
    b->setHidden(false);
    EXPECT_THAT(server.windows(), ElementsAre(low.get(), b.get(), a.get(), high.get())) << "shown already";
    low->setWindowLevel(3000);
    EXPECT_THAT(server.windows(), ElementsAre(b.get(), a.get(), high.get(), low.get()));
}

TEST_F(WindowServerTest, GivesATouchToTheTopMostWindowThatTakesIt) {
    const auto host = paintedWindow({0, 0, 375, 667}), strip = paintedWindow({0, 0, 15, 667}, 2000);
    EXPECT_EQ(server.windowAt({5, 300}), strip.get());
    EXPECT_EQ(server.windowAt({15, 300}), host.get());
    strip->setBackgroundColor(Color::clear());
    EXPECT_EQ(server.windowAt({5, 300}), host.get());
    strip->setBackgroundColor(Color::black().withAlpha(0.01));
    EXPECT_EQ(server.windowAt({5, 300}), strip.get());
    strip->setUserInteractionEnabled(false);
    EXPECT_EQ(server.windowAt({5, 300}), host.get());
    strip->setUserInteractionEnabled(true);
    strip->setAlpha(0.01);
    EXPECT_EQ(server.windowAt({5, 300}), host.get());
    strip->setAlpha(-0.5);
    EXPECT_EQ(server.windowAt({5, 300}), host.get());
    strip->setAlpha(1);
    strip->setHidden(true);
    EXPECT_EQ(server.windowAt({5, 300}), host.get());
    EXPECT_EQ(server.windowAt({500, 300}), nullptr);
}

TEST_F(WindowServerTest, LetsTouchesThroughAClearWindowWithAnEmptyRootView) {
    const auto host = paintedWindow({0, 0, 375, 667}), clear = shownWindow({0, 0, 375, 667});
    clear->setWindowLevel(2000);
    const auto controller = std::make_shared<UIViewController>();
    clear->setRootViewController(controller);
    loop.turn();
    EXPECT_EQ(server.windowAt({100, 100}), host.get());
    const auto button = std::make_shared<UIView>(Rect{90, 90, 20, 20});
    button->setBackgroundColor(Color::white(1));
    controller->view()->addSubview(button);
    EXPECT_EQ(server.windowAt({100, 100}), clear.get());
    EXPECT_EQ(server.windowAt({50, 50}), host.get());
}

TEST_F(WindowServerTest, FindsATurnedWindowWhereItLies) {
    const auto turned = paintedWindow({0, 0, 15, 667}, 2000);
    turned->setTransform(AffineTransform::rotation(std::numbers::pi / 2));
    EXPECT_EQ(server.windowAt({5, 5}), nullptr);
    EXPECT_EQ(server.windowAt({300, 333}), turned.get());
    turned->setFrame({0, 0, 15, 667});
    EXPECT_EQ(server.windowAt({5, 5}), turned.get());
}

TEST_F(WindowServerTest, AsksOnlySecureWindowsWhileLocked) {
    const auto host = paintedWindow({0, 0, 375, 667}, 1500);
    const auto secure = paintedWindow<SecureWindow>({0, 0, 15, 667});
    server.setSecureOnly(true);
    EXPECT_EQ(server.windowAt({5, 5}), secure.get());
    EXPECT_EQ(server.windowAt({100, 5}), nullptr);
    server.setSecureOnly(false);
    EXPECT_EQ(server.windowAt({5, 5}), host.get());
}

TEST_F(WindowServerTest, NeedsAFrameOnlyAfterAChange) {
    const auto window = paintedWindow({0, 0, 375, 667});
    EXPECT_TRUE(server.needsFrame());
    server.composeFrame();
    EXPECT_FALSE(server.needsFrame());
    loop.advance(10);
    EXPECT_FALSE(server.needsFrame());
    const auto differs = [this](const std::function<void()>& change) {
        change();
        const bool needed = server.needsFrame();
        server.composeFrame();
        return needed && !server.needsFrame();
    };
    EXPECT_TRUE(differs([&] { window->setWindowLevel(5); }));
    EXPECT_TRUE(differs([&] { window->setHidden(true); }));
    EXPECT_TRUE(differs([&] { server.setSecureOnly(true); }));
    EXPECT_FALSE(differs([&] { server.setSecureOnly(true); }));
    EXPECT_FALSE(differs([&] { window->setWindowLevel(5); }));
    EXPECT_TRUE(differs([&] { auto brief = std::make_shared<UIWindow>(); }));
}

TEST_F(WindowServerTest, NeedsFramesWhileSomethingMoves) {
    const auto window = paintedWindow({0, 0, 375, 667});
    UIView::animate(0.5, 0, AnimationCurve::EaseIn, [&] { window->setAlpha(0.5); });
    server.composeFrame();
    EXPECT_TRUE(server.needsFrame());
    loop.advance(0.49);
    server.composeFrame();
    EXPECT_TRUE(server.needsFrame());
    loop.advance(0.02);
    EXPECT_TRUE(server.needsFrame()) << "once more, for the end";
    server.composeFrame();
    EXPECT_FALSE(server.needsFrame());
}

TEST_F(WindowServerTest, LaysOutBeforeItComposes) {
    const auto window = paintedWindow({0, 0, 375, 667});
    const auto controller = std::make_shared<UIViewController>();
    window->setRootViewController(controller);
    server.composeFrame();
    EXPECT_EQ(controller->view()->frame(), (Rect{0, 0, 375, 667}));
    EXPECT_FALSE(server.needsFrame());
}

TEST_F(WindowServerTest, KnowsTheKeyWindowWhileItLasts) {
    auto window = std::make_shared<UIWindow>();
    EXPECT_EQ(UIApplication::sharedApplication(), nullptr);
    UIApplication application;
    EXPECT_EQ(UIApplication::sharedApplication(), &application);
    window->makeKeyAndVisible();
    EXPECT_FALSE(window->isHidden());
    EXPECT_EQ(application.keyWindow(), window.get());
    window = nullptr;
    EXPECT_EQ(application.keyWindow(), nullptr);
}

TEST_F(WindowServerTest, SwapsRootViews) {
    const auto window = shownWindow({0, 0, 10, 10});
    const auto first = std::make_shared<UIViewController>(), second = std::make_shared<UIViewController>();
    window->setRootViewController(first);
    window->setRootViewController(first);
    EXPECT_THAT(window->subviews(), ElementsAre(first->view()));
    window->setRootViewController(second);
    EXPECT_THAT(window->subviews(), ElementsAre(second->view()));
    window->setRootViewController(nullptr);
    EXPECT_THAT(window->subviews(), IsEmpty());
}

// ---- Rotation

// Windows as surfaces of their own

TEST_F(WindowServerTest, LeavesAWindowBesideTheScreenAloneUnlessItIsToBePrepared) {
    const auto seen = paintedWindow({0, 0, 100, 100}), beside = paintedWindow({375, 0, 100, 100});
    const auto composed = [&](OffScreen offScreen) {
        std::vector<UIWindow*> windows;
        for (const SeparateWindow& each : server.composeSeparately(offScreen))
            windows.push_back(each.window);
        return windows;
    };
    EXPECT_THAT(composed(OffScreen::Ignored), ElementsAre(seen.get()));
    EXPECT_THAT(composed(OffScreen::Prepared), ElementsAre(seen.get(), beside.get()));
    beside->setHidden(true);
    EXPECT_THAT(composed(OffScreen::Prepared), ElementsAre(seen.get()));
}

TEST_F(WindowServerTest, PaintsAgainWhatItHasForgotten) {
    const auto window = paintedWindow({0, 0, 100, 100});
    const auto inner = std::make_shared<UIView>(Rect{10, 10, 20, 20});
    inner->setBackgroundColor(Color::white(1));
    window->addSubview(inner);
    const auto paintedPixels = [&] {
        const auto& windows = server.composeSeparately();
        return windows.size() == 1 ? windows.front().picture->painted().paintedPixels() : -1;
    };
    EXPECT_EQ(paintedPixels(), 40 * 40);
    EXPECT_EQ(paintedPixels(), 0);
    server.forgetPictures();
    EXPECT_EQ(paintedPixels(), 40 * 40);
}

class FollowingController : public UIViewController {
public:
    FollowingController(std::string name, support::Transcript& transcript)
        : name_(std::move(name)), transcript_(transcript) {}
    void viewWillTransitionToSize(Size size, TransitionCoordinator& coordinator) override {
        transcript_.add(name_, " to ", size.width, " by ", size.height);
        coordinator.animateAlongside(
            [this, size] {
                transcript_.add(name_, " alongside");
                view()->setCenter({size.width, 0});
            },
            [this] { transcript_.add(name_, " completed"); });
        UIViewController::viewWillTransitionToSize(size, coordinator);
    }

private:
    std::string name_;
    support::Transcript& transcript_;
};

class RotationTest : public WindowServerTest {
protected:
    RotationTest() {
        front->setRootViewController(controller);
        controller->addChildViewController(child);
        loop.turn();
    }
    std::shared_ptr<UIWindow> front = shownWindow({0, 0, 375, 667}), bare = shownWindow({0, 0, 10, 10});
    std::shared_ptr<FollowingController> controller =
                                             std::make_shared<FollowingController>("root", transcript),
                                         child = std::make_shared<FollowingController>("child", transcript);
};

TEST_F(RotationTest, TellsControllersAndAnimatesAlongside) {
    server.setInterfaceOrientation(3, 0.4);
    EXPECT_EQ(UIScreen::mainScreen().bounds(), (Rect{0, 0, 667, 375}));
    EXPECT_THAT(transcript.take(), ElementsAre("root to 667 by 375", "child to 667 by 375", "root alongside",
                                               "child alongside"));
    EXPECT_TRUE(controller->view()->layer()->hasAnimations());
    loop.advance(0.39);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(0.02);
    EXPECT_THAT(transcript.take(), ElementsAre("root completed", "child completed"));
}

TEST_F(RotationTest, HappensAtOnceWithoutDuration) {
    server.setInterfaceOrientation(4, 0);
    EXPECT_THAT(transcript.take(), ElementsAre("root to 667 by 375", "child to 667 by 375", "root alongside",
                                               "child alongside"));
    EXPECT_FALSE(controller->view()->layer()->hasAnimations());
    loop.turn();
    EXPECT_THAT(transcript.take(), ElementsAre("root completed", "child completed"));
}

TEST_F(RotationTest, SwapsTheScreenOnlyBetweenPortraitAndLandscape) {
    const auto widthAfter = [this](int orientation) {
        server.setInterfaceOrientation(orientation, 0);
        return UIScreen::mainScreen().bounds().width;
    };
    EXPECT_EQ(widthAfter(1), 375);
    EXPECT_EQ(widthAfter(2), 375);
    EXPECT_EQ(widthAfter(3), 667);
    EXPECT_EQ(widthAfter(4), 667);
    EXPECT_EQ(widthAfter(1), 375);
}

TEST_F(RotationTest, CompletesEachWhenOneRotationOvertakesAnother) {
    server.setInterfaceOrientation(3, 0.4);
    loop.advance(0.2);
    transcript.take();
    server.setInterfaceOrientation(1, 0.4);
    loop.advance(1);
    const auto lines = transcript.take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "root completed"), 2);
}

class ClosingController : public UIViewController {
public:
    explicit ClosingController(std::shared_ptr<UIWindow>& other) : other_(other) {}
    void viewWillTransitionToSize(Size, TransitionCoordinator&) override { other_ = nullptr; }

private:
    std::shared_ptr<UIWindow>& other_;
};

TEST_F(RotationTest, GoesOnWhenAControllerClosesAWindow) {
    auto later = shownWindow({0, 0, 10, 10});
    later->setWindowLevel(9);
    later->setRootViewController(std::make_shared<FollowingController>("closed", transcript));
    bare->setRootViewController(std::make_shared<ClosingController>(later));
    server.setInterfaceOrientation(3, 0);
    EXPECT_THAT(transcript.take(), testing::Not(testing::Contains("closed to 667 by 375")));
}

TEST(UIDevice, RemembersTheOrientationThatItWasAskedFor) {
    auto& device = UIDevice::currentDevice();
    device.setValueForKey(4, "orientation");
    EXPECT_EQ(device.forcedOrientation(), 4);
    EXPECT_EQ(device.orientation(), DeviceOrientation::Portrait) << "the wish is the host's to grant";
    device.setValueForKey(3, "colour");
    EXPECT_EQ(device.forcedOrientation(), 4);
    device.clearForcedOrientation();
    EXPECT_EQ(device.forcedOrientation(), std::nullopt);
    EXPECT_EQ(device.model(), "iPhone");
}

} // namespace
} // namespace toolkit
