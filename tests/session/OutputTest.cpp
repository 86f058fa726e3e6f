// Outputs that go, come, change and are switched off.
#include "tests/session/MockedServices.h"
#include "tests/session/Occurrences.h"

namespace tests {

class SessionOutputs : public MockedServices {
protected:
    bool command(const std::string& text) { return compositor().command(text); }
    nlohmann::json screen() {
        const auto all = state();
        return all.is_null() ? nlohmann::json() : all["screen"];
    }
    bool waitForWidth(int width) {
        return eventually([&] { return screen()["width"] == width; });
    }
    bool waitForDisplay(bool on) {
        return eventually([&] { return state()["display"] == on; });
    }
    bool waitForPixels(const char* left, const char* right) {
        return eventually([&] { return pixel(20, 300) == left && pixel(740, 300) == right; });
    }
    void show(const std::string& side) {
        ASSERT_TRUE(request("Show", side));
        ASSERT_TRUE(waitForShown(side));
    }
    /// Every window of the product's lies where it belongs on a screen of that size.
    void expectLaidOut(double width, double height) {
        EXPECT_TRUE(eventually([&] {
            return window("darkingWindow")["frame"] == nlohmann::json({0, 0, width, height}) &&
                   window("rightWindowGrabber")["frame"][0] == width - 15 &&
                   window("leftWindowGrabber")["frame"][0] == 0;
        })) << window("darkingWindow")
            << window("rightWindowGrabber");
    }
};

constexpr const char* background = "#336699";
constexpr const char* dimmedBackground = "#14293D";

TEST_F(SessionOutputs, AnOpenPanelGoesWhenTheScaleChanges) {
    start();
    for (const auto& [scale, width, height] :
         {std::tuple{"1.25", 600, 1067}, {"1", 750, 1334}, {"3", 250, 445}, {"2", 375, 667}}) {
        show("right");
        EXPECT_TRUE(eventually([&] { return pixel(20, 300) == dimmedBackground; }))
            << scale << pixel(20, 300);
        ASSERT_TRUE(command("output HEADLESS-1 scale " + std::string(scale)));
        ASSERT_TRUE(waitForWidth(width)) << screen();
        EXPECT_NEAR(screen()["height"].get<double>(), height, 1);
        EXPECT_EQ(screen()["scale"], std::stod(scale));
        EXPECT_TRUE(waitForShown(""));
        EXPECT_TRUE(waitForPixels(background, background)) << scale;
    }
    expectLaidOut(375, 667);
}

TEST_F(SessionOutputs, AnOpenPanelGoesWhenTheModeChanges) {
    start();
    show("left");
    ASSERT_TRUE(command("output HEADLESS-1 mode 1000x1400"));
    ASSERT_TRUE(waitForWidth(500));
    EXPECT_TRUE(waitForShown(""));
    expectLaidOut(500, 700);
    show("right");
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == dimmedBackground; })) << pixel(20, 300);
}

/// The glass of the panel that still goes is of a screen that was smaller.
TEST_F(SessionOutputs, APanelMayComeAsSoonAsTheScreenHasGrown) {
    start({}, HeadlessCompositor::Kind::Sway, HostLog::Words);
    for (const int width : {500, 700, 900, 1100}) {
        show("left");
        const std::string mode = std::to_string(2 * width) + "x1400";
        ASSERT_TRUE(command("output HEADLESS-1 mode " + mode));
        ASSERT_TRUE(waitForWidth(width));
        show("right");
        EXPECT_TRUE(eventually([&] { return pixel(20, 300) == dimmedBackground; }))
            << width << pixel(20, 300);
        EXPECT_EQ(count(log(), "the compositor is gone"), 0u);
    }
}

TEST_F(SessionOutputs, AnOpenPanelGoesWhenTheOutputTurns) {
    start();
    show("right");
    ASSERT_TRUE(command("output HEADLESS-1 transform 90"));
    ASSERT_TRUE(waitForWidth(667));
    EXPECT_TRUE(waitForShown(""));
    expectLaidOut(667, 375);
    ASSERT_TRUE(command("output HEADLESS-1 transform flipped-270"));
    expectLaidOut(667, 375);
    ASSERT_TRUE(command("output HEADLESS-1 transform normal"));
    ASSERT_TRUE(waitForWidth(375));
    expectLaidOut(375, 667);
    EXPECT_TRUE(waitForPixels(background, background));
    show("left");
    EXPECT_TRUE(eventually([&] { return pixel(740, 300) == dimmedBackground; })) << pixel(740, 300);
}

TEST_F(SessionOutputs, ModeTurnAndScaleChangeInTheMiddleOfAPan) {
    start();
    for (const char* change :
         {"mode 600x1000", "transform 90", "transform normal", "scale 1.5", "scale 2", "mode 750x1334"}) {
        press(374, 300);
        dragTo(230, 300, 0.3);
        const auto before = screen();
        ASSERT_TRUE(command(std::string("output HEADLESS-1 ") + change));
        ASSERT_TRUE(eventually([&] { return screen() != before; })) << change;
        dragTo(200, 280, 0.1);
        release();
        EXPECT_TRUE(waitForShown("")) << change;
    }
    expectLaidOut(375, 667);
    EXPECT_TRUE(waitForPixels(background, background));
    show("right");
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == dimmedBackground; })) << pixel(20, 300);
}

/// What no compositor without a screen can do by itself: it is said in its place.
class SessionPower : public SessionOutputs {
protected:
    using Power = FilteredLine::Power;

    void startBehindDoor(std::set<std::string> hidden = {}) {
        startCompositor();
        hideFromHost(std::move(hidden));
        startHost();
        ASSERT_EQ(state()["display"], true);
    }
};

TEST_F(SessionPower, ADisplayThatIsSwitchedOffPutsThePanelAway) {
    startBehindDoor();
    show("right");
    door().tell(Power::Off);
    EXPECT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    EXPECT_FALSE(request("Show", "right"));
    EXPECT_TRUE(waitForPixels(background, background));
    door().tell(Power::On);
    EXPECT_TRUE(waitForDisplay(true));
    show("right");
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == dimmedBackground; })) << pixel(20, 300);
}

TEST_F(SessionPower, ADisplayThatIsSwitchedOffEndsAPan) {
    startBehindDoor();
    press(374, 300);
    dragTo(230, 300, 0.3);
    ASSERT_TRUE(waitForShown("right"));
    door().tell(Power::Off);
    EXPECT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    release();
    door().tell(Power::On);
    EXPECT_TRUE(waitForDisplay(true));
    EXPECT_EQ(shown(), "");
    show("left");
}

TEST_F(SessionPower, NothingTakesTouchesOnADisplayThatIsOff) {
    startBehindDoor();
    client().openWindow("org.example.Editor");
    door().tell(Power::Off);
    ASSERT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(eventually([&] {
        tap(5, 300);
        return !client().presses().empty();
    }));
}

TEST_F(SessionPower, WhatIsNoLongerToldCountsAsOn) {
    startBehindDoor();
    door().tell(Power::Off);
    ASSERT_TRUE(waitForDisplay(false));
    door().tell(Power::Unknown);
    EXPECT_TRUE(waitForDisplay(true));
    show("right");
}

TEST_F(SessionPower, WhereItIsNotToldAnIdleSessionsDisplayIsOff) {
    startLogin();
    startBehindDoor({"zwlr_output_power_manager_v1"});
    show("right");
    // The host looks its session up first.
    EXPECT_TRUE(eventually([&] { return state()["display"] == false; }, [&] { setIdleHint(true); }));
    EXPECT_TRUE(waitForRest(""));
    EXPECT_FALSE(request("Show", "right"));
    setIdleHint(false);
    EXPECT_TRUE(waitForDisplay(true));
    show("right");
    setIdleHint(true);
    ASSERT_TRUE(waitForDisplay(false));
    endMocks();
    EXPECT_TRUE(waitForDisplay(true)) << "nobody is left who could say that somebody is back";
}

TEST_F(SessionPower, WhereItIsToldAnIdleSessionsDisplayMayBeOn) {
    startLogin();
    startBehindDoor();
    setIdleHint(true);
    EXPECT_TRUE(eventually([&] { return state()["locked"] == true; }, [&] { setLockedHint(true); }));
    EXPECT_EQ(state()["display"], true);
}

/// A compositor that is a window of another one for each of its outputs: they can be closed.
class SessionHotPlug : public SessionOutputs {
protected:
    void SetUp() override {
        ASSERT_TRUE(outer_.started());
        for (const char* text : {"default_floating_border none", "floating_maximum_size -1 x -1",
                                 "for_window [app_id=\".*\"] floating enable"})
            ASSERT_TRUE(outer_.command(text));
        start({.parent = outer_.socket()});
        ASSERT_TRUE(command("output WL-2 mode 1000x600 position 2000 0 bg #996633 solid_color"));
        ASSERT_TRUE(command("output WL-3 mode 750x1334 scale 2 bg #336699 solid_color"));
    }
    void plugIn() { ASSERT_TRUE(command("create_output")); }
    void plugOut(const std::string& output) {
        const std::string close = "[title=\"wlroots - " + output + "\"] kill";
        // The window is there a moment after the output.
        ASSERT_TRUE(eventually([&] { return outer_.command(close); })) << output;
    }

private:
    HeadlessCompositor outer_{{1920, 1400, "1"}};
};

TEST_F(SessionHotPlug, AnOutputThatGoesIsADisplayThatIsOff) {
    show("right");
    plugOut("WL-1");
    EXPECT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    EXPECT_FALSE(request("Show", "right"));
    plugIn();
    plugOut("WL-2");
    plugIn();
    ASSERT_TRUE(waitForWidth(375));
    EXPECT_TRUE(waitForDisplay(true));
    show("left");
    EXPECT_TRUE(eventually([&] { return pixel(740, 300) == dimmedBackground; })) << pixel(740, 300);
}

TEST_F(SessionHotPlug, MovesToAnotherOutputWhenItsOwnGoes) {
    plugIn();
    show("right");
    plugOut("WL-1");
    ASSERT_TRUE(waitForWidth(1000));
    EXPECT_EQ(state()["display"], true);
    EXPECT_TRUE(waitForShown(""));
    expectLaidOut(1000, 600);
    show("left");
    EXPECT_TRUE(eventually([&] { return pixel(990, 300) == "#3D2914"; })) << pixel(990, 300);
    ASSERT_TRUE(request("Dismiss"));
    EXPECT_TRUE(waitForShown(""));
    EXPECT_TRUE(eventually([&] { return pixel(990, 300) == "#996633"; })) << pixel(990, 300);
}

TEST_F(SessionHotPlug, StaysWhenAnotherOutputComesAndGoes) {
    show("right");
    plugIn();
    plugOut("WL-2");
    plugIn();
    EXPECT_EQ(shown(), "right");
    EXPECT_EQ(screen()["width"], screenWidth);
    ASSERT_TRUE(request("Dismiss"));
    EXPECT_TRUE(waitForRest(""));
}

TEST_F(SessionHotPlug, AnOutputGoesInTheMiddleOfAPan) {
    press(374, 300);
    dragTo(230, 300, 0.3);
    ASSERT_TRUE(waitForShown("right"));
    plugOut("WL-1");
    EXPECT_TRUE(waitForDisplay(false));
    EXPECT_TRUE(waitForRest(""));
    release();
    plugIn();
    ASSERT_TRUE(waitForWidth(1000));
    EXPECT_TRUE(waitForDisplay(true));
    show("right");
}

} // namespace tests
