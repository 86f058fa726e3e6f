// Lists of a real server, whose streams the real engine plays.
#include "hosts/media/engine/StreamListEngine.h"

#include "hosts/media/engine/GStreamerEngine.h"
#include "tests/support/RealTimeTest.h"
#include "tests/support/StreamServer.h"

namespace playback {
namespace {

class StreamListEngineTest : public support::RealTimeTest {
protected:
    StreamListEngineTest() {
        PlaybackEvents events;
        events.streamTitleChanged = [this](const std::string& title) { titles.push_back(title); };
        events.failed = [this](const std::string& reason) { failures.push_back(reason); };
        engine.setEvents(events);
    }
    void tuneIn(const std::string& path) {
        engine.load(server.address(path), 0);
        engine.play();
    }
    bool sounds() {
        return runUntil([&] { return engine.position() > 0.1; });
    }

    support::StreamServer server;
    std::vector<std::string> titles;
    std::vector<std::string> failures;
    StreamListEngine engine{std::make_unique<GStreamerEngine>()};
};

TEST_F(StreamListEngineTest, PlaysTheStreamOfAList) {
    tuneIn("/stations.m3u");
    EXPECT_EQ(engine.state(), PlaybackState::Playing) << "as soon as it is to";
    ASSERT_TRUE(sounds());
    EXPECT_TRUE(runUntil([&] { return !titles.empty(); }));
    EXPECT_TRUE(failures.empty());
}

TEST_F(StreamListEngineTest, PlaysTheNextStreamWhenOneCannotBe) {
    tuneIn("/stations.pls");
    ASSERT_TRUE(sounds());
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(engine.state(), PlaybackState::Playing);
}

TEST_F(StreamListEngineTest, StaysPausedWhenItIsPausedMeanwhile) {
    tuneIn("/stations.m3u");
    engine.pause();
    EXPECT_EQ(engine.state(), PlaybackState::Paused);
    runFor(0.5);
    EXPECT_EQ(engine.state(), PlaybackState::Paused);
    EXPECT_EQ(engine.position(), 0);
    engine.play();
    EXPECT_TRUE(sounds());
}

TEST_F(StreamListEngineTest, FailsOnceWhereNoStreamIs) {
    for (const char* path : {"/empty.m3u", "/long.m3u", "/none.pls"}) {
        failures.clear();
        tuneIn(path);
        EXPECT_TRUE(failures.empty()) << "never from within a call";
        EXPECT_TRUE(runUntil([&] { return !failures.empty(); })) << path;
        runFor(0.1);
        EXPECT_EQ(failures.size(), 1u) << path;
        EXPECT_EQ(engine.state(), PlaybackState::Stopped) << path;
    }
}

TEST_F(StreamListEngineTest, ForgetsTheListForWhatIsLoadedNext) {
    tuneIn("/silent.pls");
    tuneIn("/radio");
    ASSERT_TRUE(sounds());
    tuneIn("/stations.pls");
    engine.unload();
    runFor(0.5);
    EXPECT_EQ(engine.state(), PlaybackState::Stopped);
    EXPECT_TRUE(failures.empty());
}

} // namespace
} // namespace playback
