#include "hosts/script/ScriptPlayer.h"

#include "hosts/script/ScriptParser.h"
#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "tests/support/RecordingScriptTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace script {
namespace {

using testing::ElementsAre;

/// A main loop, made before anything that asks for its time.
struct WithMainLoop {
    WithMainLoop() { foundation::RunLoop::setMain(&loop); }
    foundation::VirtualRunLoop loop;
};

class ScriptPlayerTest : public testing::Test, protected WithMainLoop {
protected:
    /// Plays to the end, or to `limit` seconds of the virtual clock.
    void play(const std::string& text, double limit = 100) {
        ScriptPlayer player(parseScript(text, "test.phone"), target);
        player.start([this](const std::optional<ScriptError>& failure) {
            ++endings;
            endTime = loop.now();
            error = failure ? failure->what() : "";
        });
        loop.runUntil([this] { return endings > 0; }, limit);
    }

    support::RecordingScriptTarget target;
    int endings = 0;
    double endTime = -1;
    std::string error = "did not end";
};

TEST_F(ScriptPlayerTest, EndsAnEmptyScriptAtOnce) {
    play("# nothing\n");
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(endTime, 0);
    EXPECT_EQ(error, "");
}

TEST_F(ScriptPlayerTest, PlaysCommandsThatTakeNoTimeAtOneMomentInOrder) {
    play("lock\nunlock\nopen a.b\nrotate 3\nkeyboard show\nset k bool 1\nset k remove\ntype \"x y\"\n"
         "shot a.png\nstate a.json\npress lock\n");
    EXPECT_THAT(target.calls,
                ElementsAre("0.0000 lock", "0.0000 unlock", "0.0000 open a.b", "0.0000 rotate 3",
                            "0.0000 keyboard", "0.0000 set k", "0.0000 set k away", "0.0000 type x y",
                            "0.0000 shot a.png", "0.0000 state a.json", "0.0000 press 2"));
    EXPECT_EQ(endTime, 0);
}

TEST_F(ScriptPlayerTest, PlaysMusic) {
    play("play Rain\nplay next\nplay previous\nplay pause\nplay resume\nseek 5\nradio \"A|B\"\n"
         "nowplaying title=A\nnowplaying none\nelapsed 3\nvolume-slider begin\nvolume-slider end\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 song Rain", "0.0000 player 0", "0.0000 player 1",
                                          "0.0000 player 2", "0.0000 player 3", "0.0000 seek 5.000000",
                                          "0.0000 radio A/B", "0.0000 plays 1", "0.0000 nothing plays",
                                          "0.0000 elapsed 3.000000", "0.0000 hold", "0.0000 let go"));
    EXPECT_EQ(error, "");
}

TEST_F(ScriptPlayerTest, WaitsUntilMusicHasBeenRead) {
    play("music add /some/where\nlock\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 music /some/where", "0.0333 lock"));
}

TEST_F(ScriptPlayerTest, PlaysManyCommandsAtOneMoment) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "lock\n";
    play(text);
    EXPECT_EQ(target.calls.size(), 1000u);
    EXPECT_EQ(target.calls.back(), "0.0000 lock");
    EXPECT_EQ(endTime, 0);
}

TEST_F(ScriptPlayerTest, Waits) {
    play("wait 0.75\nlock\nwait 0\nunlock\nwait 2\n");
    EXPECT_THAT(target.calls, ElementsAre("0.7500 lock", "0.7500 unlock"));
    EXPECT_DOUBLE_EQ(endTime, 2.75);
}

TEST_F(ScriptPlayerTest, MovesInEvenStepsOneASixtiethOfASecond) {
    play("touch down 100 50\ntouch move 40 80 over 0.05\ntouch up\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 down 1 100,50", "0.0167 move 1 80,60",
                                          "0.0333 move 1 60,70", "0.0500 move 1 40,80", "0.0500 up 1"));
}

TEST_F(ScriptPlayerTest, RoundsTheNumberOfStepsAndTakesAtLeastOne) {
    play("touch down 0 0\ntouch move 10 0 over 0.04\ntouch move 20 0 over 0\ntouch up\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 down 1 0,0", "0.0167 move 1 5,0", "0.0333 move 1 10,0",
                                          "0.0500 move 1 20,0", "0.0500 up 1"));
}

TEST_F(ScriptPlayerTest, MovesWithoutADurationInOneEventASixtiethLater) {
    play("touch down 0 0\ntouch move 30 40\ntouch move 50 60\ntouch up\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 down 1 0,0", "0.0167 move 1 30,40", "0.0333 move 1 50,60",
                                          "0.0333 up 1"));
}

TEST_F(ScriptPlayerTest, LongMovesGatherNoErrorOfTime) {
    play("touch down 0 0\ntouch move 600 0 over 10\n");
    EXPECT_EQ(target.calls.size(), 601u);
    EXPECT_EQ(target.calls.back(), "10.0000 move 1 600,0");
    EXPECT_EQ(target.calls[300], "5.0000 move 1 300,0");
}

TEST_F(ScriptPlayerTest, TapsWithAFingerOfItsOwn) {
    play("touch down 5 5\ntap 30 40\ntouch move 6 6\n");
    EXPECT_THAT(target.calls,
                ElementsAre("0.0000 down 1 5,5", "0.0000 down 0 30,40", "0.0167 up 0", "0.0333 move 1 6,6"));
}

TEST_F(ScriptPlayerTest, KeepsTheFingersApart) {
    play("touch down 0 0\ntouch down 100 100 finger 2\ntouch move 10 0 over 0.03\n"
         "touch move 90 100 finger 2\ntouch up\ntouch up finger 2\n");
    EXPECT_THAT(target.calls,
                ElementsAre("0.0000 down 1 0,0", "0.0000 down 2 100,100", "0.0167 move 1 5,0",
                            "0.0333 move 1 10,0", "0.0500 move 2 90,100", "0.0500 up 1", "0.0500 up 2"));
}

TEST_F(ScriptPlayerTest, LetsEverythingElseOfAMomentRunBeforeTheNextCommand) {
    std::vector<std::string>& calls = target.calls;
    auto timer = loop.scheduleTimer(0.5, false, [&] {
        calls.push_back("timer");
        loop.performOnMain([&] { calls.push_back("block"); });
    });
    auto hook = loop.addTurnHook(foundation::TurnPhase::Layout, [&] {
        if (!calls.empty() && calls.back() == "block")
            calls.push_back("layout");
    });
    play("wait 0.5\nlock\n");
    EXPECT_THAT(calls, ElementsAre("timer", "block", "layout", "0.5000 lock"));
}

TEST_F(ScriptPlayerTest, EndsAtTheFirstFailureAndNamesItsPlace) {
    target.failing = "open";
    play("lock\n\nopen no.such\nunlock\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 lock", "0.0000 open no.such"));
    EXPECT_EQ(error, "test.phone:3: it would not");
    EXPECT_EQ(endings, 1);
}

TEST_F(ScriptPlayerTest, EndsInTheMiddleOfAMoveOrATapThatFails) {
    target.failing = "move";
    play("touch down 0 0\ntouch move 10 0 over 1\nlock\n");
    EXPECT_THAT(target.calls, ElementsAre("0.0000 down 1 0,0", testing::StartsWith("0.0167 move")));
    EXPECT_EQ(error, "test.phone:2: it would not");

    endings = 0;
    target.calls.clear();
    target.failing = "up";
    play("tap 1 1\nlock\n");
    EXPECT_EQ(target.calls.size(), 2u);
    EXPECT_EQ(error, "test.phone:1: it would not");
}

TEST_F(ScriptPlayerTest, KnowsHowLongAScriptTakes) {
    const Script script = parseScript(
        "wait 1.5\ntap 1 1\ntouch down 0 0\ntouch move 1 1\ntouch move 2 2 over 0.5\nlock\n", "x");
    EXPECT_DOUBLE_EQ(ScriptPlayer::durationOf(script), 1.5 + 1.0 / 60 + 1.0 / 60 + 0.5);
}

TEST(ScriptPlayerInRealTime, KeepsTheFingersSpeedAndEveryLastStep) {
    foundation::GlibRunLoop loop;
    foundation::RunLoop::setMain(&loop);
    support::RecordingScriptTarget target;
    ScriptPlayer player(
        parseScript("touch down 0 0\ntouch move 60 0 over 0.2\ntouch up\nwait 0.05\nlock\n", "x"), target);
    bool ended = false;
    const double begin = loop.now();
    player.start([&](const std::optional<ScriptError>& error) {
        EXPECT_FALSE(error);
        ended = true;
        loop.stop();
    });
    auto limit = loop.scheduleTimer(20, false, [&] { loop.stop(); });
    loop.run();
    ASSERT_TRUE(ended);
    EXPECT_GE(loop.now() - begin, 0.25);
    // Late beats may merge steps, but the last one is always made, and each stands where its time puts it.
    ASSERT_GE(target.calls.size(), 4u);
    EXPECT_THAT(target.calls[target.calls.size() - 3], testing::HasSubstr("move 1 60,0"));
    EXPECT_THAT(target.calls[target.calls.size() - 2], testing::HasSubstr("up 1"));
    foundation::RunLoop::setMain(nullptr);
}

} // namespace
} // namespace script
