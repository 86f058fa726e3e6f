// The real phone with the real library, driven by scripts and seen through the states that they write.
#include "tests/support/PhoneRun.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;
using tests::PhoneRun;

const std::string openRight = R"(
touch down 370 300
touch move 60 300 over 0.3
wait 0.2
touch up
wait 0.5
)";
const std::string openLeft = R"(
touch down 5 300
touch move 320 300 over 0.3
wait 0.2
touch up
wait 0.5
)";

json grabber(const json& state, const char* side) {
    return PhoneRun::window(state, std::string(side) + "WindowGrabber");
}
json panel(const json& state, const char* side) {
    return PhoneRun::window(state, std::string(side) + "Controller");
}
bool shown(const json& state, const char* side) {
    return grabber(state, side)["properties"]["showed"];
}

/// Single precision, as panel widths are.
double share(double whole, float part) {
    return static_cast<double>(static_cast<float>(whole * static_cast<double>(part)));
}

TEST(Panels, StandClosedBesideTheScreenAfterLaunch) {
    const PhoneRun run("state state.json\n");
    const json state = run.state();
    const double right = share(375, 0.85f), left = share(375, 0.8f);
    EXPECT_EQ(panel(state, "right")["frame"], json({375.0, 0.0, right, 667.0}));
    EXPECT_EQ(panel(state, "left")["frame"], json({-left, 0.0, left, 667.0}));
    EXPECT_EQ(panel(state, "right")["hidden"], true);
    EXPECT_EQ(panel(state, "right")["level"], 2001);
    EXPECT_EQ(grabber(state, "left")["level"], 2000);
    EXPECT_EQ(grabber(state, "left")["frame"], json({0.0, 0.0, 15.0, 667.0}));
    EXPECT_EQ(grabber(state, "right")["frame"], json({360.0, 0.0, 15.0, 667.0}));
    EXPECT_EQ(PhoneRun::window(state, "darkingWindow")["alpha"], 0.0);
    EXPECT_EQ(PhoneRun::window(state, "socialWindow")["level"], 0);
    EXPECT_EQ(state["log"], json({"<Vela3>Yeah!"}));
}

TEST(Panels, FollowTheFingerAndOpen) {
    const PhoneRun run(
        "touch down 370 300\ntouch move 350 300\ntouch move 250 300 over 0.1\nstate drag.json\n"
        "touch move 60 300 over 0.2\nwait 0.2\ntouch up\nwait 0.1\nstate half.json\nwait 0.3\n"
        "state open.json\n");
    const double width = share(375, 0.85f);
    const json drag = run.state("drag.json");
    EXPECT_EQ(panel(drag, "right")["frame"], json({275.0, 0.0, width, 667.0}));
    EXPECT_EQ(PhoneRun::window(drag, "darkingWindow")["alpha"], 1 - (275 - (375 - width)) / width);
    EXPECT_EQ(PhoneRun::window(drag, "darkingWindow")["properties"]["touchController"], 1);
    EXPECT_FALSE(shown(run.state("half.json"), "right"));
    const json open = run.state("open.json");
    EXPECT_TRUE(shown(open, "right"));
    EXPECT_EQ(panel(open, "right")["frame"][0], static_cast<double>(static_cast<float>(375 - width)));
}

TEST(Panels, TellTheNotificationCentreOnTheLeftOnly) {
    const PhoneRun run(openRight + "tap 20 300\nwait 0.5\n" + openLeft +
                       "tap 360 300\nwait 0.5\nstate state.json\n");
    std::vector<json> own;
    const json state = run.state();
    for (const auto& notification : state["notifications"])
        if (notification["name"] == "org.lanternhub.vela3_notification")
            own.push_back(notification["object"]);
    EXPECT_EQ(own, (std::vector<json>{{{"name", "invoked"}}, {{"name", "dismissed"}}}));
}

TEST(Panels, CloseAtAPressOfHomeWhichDoesNothingElse) {
    const PhoneRun run("open com.apple.mobilenotes\nwait 1\n" + openRight +
                       "press home\nwait 0.5\nstate closed.json\npress home\nwait 1\nstate home.json\n");
    EXPECT_FALSE(shown(run.state("closed.json"), "right"));
    EXPECT_EQ(run.state("closed.json")["frontmost"], "com.apple.mobilenotes");
    EXPECT_EQ(run.state("home.json")["frontmost"], "");
}

TEST(Panels, CloseOnTheLeftToo) {
    const PhoneRun run(openLeft + "press home\nwait 0.35\nstate home.json\n" + openLeft +
                       "press home\nwait 0.1\npress home\nwait 0.35\nstate twice.json\n" + openLeft +
                       "press lock\nwait 0.35\nstate lock.json\n");
    for (const char* name : {"home.json", "twice.json", "lock.json"}) {
        const json state = run.state(name);
        EXPECT_FALSE(shown(state, "left")) << name;
        EXPECT_EQ(panel(state, "left")["hidden"], true) << name;
        EXPECT_EQ(PhoneRun::window(state, "darkingWindow")["alpha"], 0.0) << name;
    }
}

TEST(Panels, CloseWhenTheDisplayTurnsOff) {
    const PhoneRun run(openRight + "press lock\nwait 0.5\nstate state.json\n");
    EXPECT_FALSE(shown(run.state(), "right"));
    EXPECT_EQ(run.state()["display"], false);
    EXPECT_EQ(run.state()["locked"], true);
}

TEST(Panels, OpenOverTheLockScreenUnlessTheSettingForbidsIt) {
    const std::string onLockScreen =
        "lock\nwait 0.6\npress lock\nwait 0.6\n" + openRight + "state state.json\n";
    EXPECT_TRUE(shown(PhoneRun(onLockScreen).state(), "right"));
    EXPECT_FALSE(shown(PhoneRun("set Lockscreen bool true\n" + onLockScreen).state(), "right"));
}

TEST(Panels, FollowChangesOfThePreferencesWithinHalfASecond) {
    const PhoneRun run(R"(
set "Grabber height" string half_bottom
set Sensibility string Height
set right_size_portrait number 0.6
wait 0.5
wait 0.5
state sizes.json
set Enable bool false
wait 0.5
state off.json
set Enable bool true
set "Alternative chevrons" bool true
wait 0.5
state on.json
)");
    const json sizes = run.state("sizes.json");
    EXPECT_EQ(grabber(sizes, "left")["frame"], json({0.0, 333.5, 30.0, 333.5}));
    EXPECT_EQ(grabber(sizes, "right")["frame"], json({345.0, 333.5, 30.0, 333.5}));
    EXPECT_EQ(panel(sizes, "right")["frame"][2], share(375, 0.6f));
    const json off = run.state("off.json");
    EXPECT_EQ(grabber(off, "right")["userInteraction"], false);
    EXPECT_EQ(grabber(off, "right")["background"][3], 0.0);
    EXPECT_EQ(grabber(off, "left")["userInteraction"], true);
    EXPECT_EQ(grabber(off, "left")["background"][3], 0.0);
    const json on = run.state("on.json");
    EXPECT_EQ(grabber(on, "right")["background"][3], 0.01);
}

TEST(Panels, GiveTheKeyboardWayOnlyWhenAsked) {
    const std::string script =
        "open com.apple.mobilenotes\nwait 1\nkeyboard show\nwait 1\n" + openRight + "state state.json\n";
    EXPECT_FALSE(shown(PhoneRun(script).state(), "right"));
    EXPECT_TRUE(shown(PhoneRun("set Keyboard bool false\n" + script).state(), "right"));
}

TEST(Panels, StayAwayFromApplicationsThatAreSwitchedOff) {
    const std::string script =
        "set com.apple.mobileslideshow bool true\nopen com.apple.mobileslideshow\nwait 1.5\n" + openRight +
        "state there.json\npress home\nwait 1.5\n" + openRight + "state home.json\n";
    const PhoneRun run(script);
    EXPECT_FALSE(shown(run.state("there.json"), "right"));
    EXPECT_TRUE(shown(run.state("home.json"), "right"));
}

TEST(Panels, ChooseTheBlurByTheBrightnessOfWhatLiesBeneath) {
    const auto effect = [](const std::string& application) {
        const PhoneRun run("open " + application + "\nwait 1\n" + openRight + "state state.json\n");
        const json window = panel(run.state(), "right");
        return window["subviews"][0]["effect"].get<std::string>();
    };
    EXPECT_EQ(effect("com.apple.mobilenotes"), "dark");
    EXPECT_EQ(effect("com.apple.mobiletimer"), "light");
}

TEST(Panels, AreLaidOutForLandscape) {
    const PhoneRun run(
        "open com.apple.mobileslideshow\nwait 1\nrotate 3\nwait 1.5\nstate turned.json\n"
        "touch down 660 200\ntouch move 300 200 over 0.3\nwait 0.2\ntouch up\nwait 0.5\nstate open.json\n");
    const json turned = run.state("turned.json");
    EXPECT_EQ(turned["screen"]["width"], 667.0);
    EXPECT_EQ(turned["screen"]["interface"], 3);
    EXPECT_EQ(grabber(turned, "right")["frame"], json({652.0, 0.0, 15.0, 375.0}));
    const json open = run.state("open.json");
    EXPECT_TRUE(shown(open, "right"));
    EXPECT_EQ(panel(open, "right")["frame"], json({333.5, 0.0, 333.5, 375.0}));
}

TEST(Panels, AreAbsentWithoutTheExtensionAndBelowSystemVersionNine) {
    const auto classes = [](const PhoneRun& run) {
        std::string all;
        const json state = run.state();
        for (const auto& window : state["windows"])
            all += window["class"].get<std::string>() + " ";
        return all;
    };
    const std::string script = openRight + "state state.json\n";
    EXPECT_EQ(classes(PhoneRun(script, {"--no-extension"})).find("WindowGrabber"), std::string::npos);
    EXPECT_EQ(classes(PhoneRun(script, {"--system-version", "8.4"})).find("WindowGrabber"),
              std::string::npos);
    EXPECT_NE(classes(PhoneRun(script, {"--system-version", "10.2"})).find("WindowGrabber"),
              std::string::npos);
}

TEST(Panels, AreLaidOutOnATabletAtEveryTurn) {
    const PhoneRun run("rotate 3\nwait 2\nstate landscape.json\nrotate 1\nwait 2\nstate portrait.json\n",
                       {"--model", "iPad", "--screen", "768x1024@1"});
    const json landscape = run.state("landscape.json");
    EXPECT_EQ(landscape["screen"]["width"], 1024.0);
    EXPECT_EQ(panel(landscape, "right")["frame"][0], 1024.0);
    EXPECT_EQ(panel(run.state("portrait.json"), "right")["frame"][0], 768.0);
}

} // namespace
